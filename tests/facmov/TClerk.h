#pragma once

#include "forms/TApplication.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// A person at a screen, for tests that do not know what will be asked: says OK and Yes to everything, picks nothing
/// from lookups, and is his own supervisor. What could not be done is a failure of the test, unless it is tried.
class TClerk final : public IEventSource {
public:
    /// The application must live as long as he acts.
    void Uses(TApplication& application) { application_ = &application; }

    // On the screen in front
    void Open(std::string className);
    void Close(std::string className);
    void Turn(std::string pages, int index);
    void Click(std::string control);
    void DoubleClick(std::string grid, std::size_t row);
    void Check(std::string control, bool checked);
    void Select(std::string control, int index);
    /// The text instead of what stands there, then Enter.
    void Type(std::string control, std::string_view text);
    void Pass(std::string control);
    void GoTo(std::string grid, std::size_t row, std::string column);
    /// Goes to the cell, types, leaves it with Enter. False when a person could not do so.
    bool TryCell(std::string grid, std::size_t row, std::string column, std::string_view text);

    /// What he was told and asked since the last call.
    std::vector<std::string> Heard();

private:
    TUserEvent Next() override;
    void Handled(const TUserEvent& event, std::string_view refusal) override;
    void Do(const TUserEvent& event);

    TApplication* application_ = nullptr;
    std::vector<std::string> heard_;
};

} // namespace alinhavo
