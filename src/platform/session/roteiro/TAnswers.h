#pragma once

#include "platform/session/roteiro/IWorld.h"
#include "platform/session/roteiro/THands.h"

#include <filesystem>
#include <string>

namespace alinhavo::roteiro {

/// Answers what is on top of an application. EMismatch when it is not what is written.
class TAnswers {
public:
    /// Files are looked for beside `roteiro`.
    TAnswers(IWorld& world, TApplication& application, THands::TSend send, std::filesystem::path roteiro);

    void operator()(const TMessage& written) const;
    void operator()(const TQuestion& written) const;
    void operator()(const TInput& written) const;
    void operator()(const TLookup& written) const;
    void operator()(const TSupervisor& written) const;
    void operator()(const TFile& written) const;
    /// A modal screen stays as it is; the viewer of pictures is closed.
    void operator()(const TModal& written) const;

private:
    TDialog& Top(TDialog::TKind kind, const std::string& written) const;
    void CheckTitle(const TDialog& dialog, const std::optional<std::string>& title) const;
    std::int64_t OfferedRow(const TMatches& row) const;
    void Answer(TModalResult answer, std::string text = {}, std::vector<std::int64_t> rows = {}) const;
    void AnswerOrCancel(const std::optional<std::string>& text) const;

    IWorld& world_;
    TApplication& application_;
    TStage stage_;
    THands::TSend send_;
    std::filesystem::path folder_;
};

} // namespace alinhavo::roteiro
