#pragma once

#include "forms/TMemTable.h"
#include "host/TprReport.h"
#include "platform/report/TRenderer.h"
#include "platform/report/TTemplateFolder.h"
#include "platform/report/TWorkFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace alinhavo {

/// Pending pieces, as a screen would give them to a report.
struct TPendingTable final : TMemTable {
    TPendingTable()
        : TMemTable("TbRel")
    {
    }

    TStringField Faccao{*this, "FACCAO", 5};
    TStringField Numero{*this, "NUMERO", 6};
    TFloatField Quant{*this, "QUANT"};
    TDateField Data{*this, "DATA"};

    void Add(std::string_view faccao, std::string_view numero, double quant)
    {
        Append();
        Faccao = faccao;
        Numero = numero;
        Quant = quant;
        Data = TDateTime::FromDate(2026, 11, 20);
        Post();
    }
};

/// Renders templates written in the test.
class TReportTest : public testing::Test {
protected:
    TReportTest() { Report.DataSets["TbRel"] = &TbRel; }

    void WriteFile(const std::string& name, const std::string& text)
    {
        std::ofstream(Folder.Path() / name, std::ios::binary) << text;
    }

    std::string Html(const std::string& text)
    {
        const TTemplateFolder folder({Folder.Path()});
        const auto layout = TTemplate::Parse("WTeste.prt", text, folder);
        Setup.pictures = Folder.Path();
        auto rendered = TRenderer(layout, Report, Setup).Html();
        Unknown = rendered.unknownNames;
        return rendered.text;
    }

    std::string Plain(const std::string& text)
    {
        const TTemplateFolder folder({Folder.Path()});
        const auto layout = TTemplate::Parse("TTeste.prt", text, folder);
        return TRenderer(layout, Report, Setup).Text().text;
    }

    /// The text of the error that the template ends in.
    std::string Error(const std::string& text)
    {
        try {
            Html(text);
        } catch (const ETemplate& error) {
            return error.what();
        }
        return "no error";
    }

    TWorkFolder Folder;
    TPendingTable TbRel;
    TprReport Report;
    TRenderSetup Setup;
    std::set<std::string> Unknown;
};

} // namespace alinhavo
