#include "platform/report/TPdfPrinter.h"

#include "platform/report/ETemplate.h"
#include "TReportTest.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <thread>

namespace alinhavo {
namespace {

using testing::HasSubstr;

std::string WhyNot(const TPdfPrinter& printer)
{
    try {
        printer.Print("<p>x");
    } catch (const std::exception& error) {
        return error.what();
    }
    return "printed";
}

TEST(TPdfPrinter, prints_each_page_of_the_document)
{
    const auto pdf = TPdfPrinter("chromium")
                         .Print("<!doctype html><html><head><style>div { break-after: page "
                                "}</style></head><body><div>a</div><div>b</div><p>c");
    EXPECT_TRUE(pdf.starts_with("%PDF"));
    EXPECT_THAT(pdf, HasSubstr("/Count 3"));
}

TEST(TPdfPrinter, says_when_there_is_no_program)
{
    EXPECT_FALSE(TPdfPrinter("").Available());
    EXPECT_THAT(WhyNot(TPdfPrinter("")), HasSubstr("imprima pelo navegador"));
    EXPECT_THAT(WhyNot(TPdfPrinter("nenhum-programa-assim")), HasSubstr("não pode ser iniciado"));
    EXPECT_THAT(WhyNot(TPdfPrinter("false")), HasSubstr("terminou com erro"));
    EXPECT_THAT(WhyNot(TPdfPrinter("true")), HasSubstr("não o fez"));
}

TEST(TPdfPrinter, ends_a_program_that_does_not_end)
{
    const TWorkFolder folder;
    const auto program = folder.Path() / "lento";
    std::ofstream(program) << "#!/bin/sh\nsleep 60\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    EXPECT_THAT(WhyNot(TPdfPrinter(program.string(), std::chrono::seconds(1))), HasSubstr("demora demais"));
    std::atomic<bool> cancelled = true;
    EXPECT_THROW(TPdfPrinter(program.string()).Print("<p>x", &cancelled), EReportCancelled);
}

} // namespace
} // namespace alinhavo
