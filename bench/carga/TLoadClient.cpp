#include "bench/carga/TLoadClient.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace alinhavo {

using json = nlohmann::json;

namespace {

constexpr std::chrono::minutes Patience(1); ///< what takes longer hangs

/// The number behind "done" without reading the message: it is looked for on the session's own thread.
std::int64_t DoneOf(std::string_view message)
{
    constexpr std::string_view member = R"("done":)";
    const auto place = message.find(member);
    return place == std::string_view::npos ? -1 : std::stoll(std::string(message.substr(place + member.size(), 20)));
}

} // namespace

TLoadClient::TLoadClient(std::shared_ptr<TWebSession> session, TEventTimes& times)
    : link_(std::make_shared<TLink>(times))
    , session_(std::move(session))
{
    session_->Attach(link_);
    while (done_ < 0)
        Take(link_->Next());
}

void TLoadClient::Do(json event, TEventKind kind)
{
    Send(std::move(event), kind);
    Await();
}

void TLoadClient::Send(json event, TEventKind kind)
{
    event["n"] = ++number_;
    event["turn"] = turn_;
    const auto text = event.dump();
    link_->Sent(number_, kind, event.value("event", "") + " " + event.value("control", ""));
    session_->Receive(*link_, text);
}

void TLoadClient::Await()
{
    while (done_ < number_)
        Take(link_->Next());
    if (!refusal_.empty())
        throw std::runtime_error(std::exchange(refusal_, {}));
}

void TLoadClient::Take(const json& message)
{
    if (message.contains("error") || message.contains("ended"))
        throw std::runtime_error(message.dump());
    for (const auto& form : message.value("shown", json::array()))
        for (const auto& control : form["controls"])
            Note(control);
    for (const auto& control : message.value("changed", json::array()))
        Note(control);
    if (message.contains("dialogs"))
        dialogs_ = message["dialogs"];
    if (message.contains("focus"))
        focus_ = message["focus"]["control"];
    if (message.contains("refused"))
        refusal_ = message["refused"].back()["why"];
    done_ = message.value("done", done_);
    turn_ = message.value("turn", turn_);
}

void TLoadClient::Note(const json& control)
{
    auto& known = controls_[control["name"]];
    for (const auto& [name, value] : control.items()) {
        if (name == "rows")
            for (const auto& row : value)
                known.rows[row[0].get<int>()] = row[1];
        else
            known.properties[name] = value;
    }
    if (control.contains("count"))
        std::erase_if(known.rows, [&](const auto& row) { return row.first >= control["count"].get<int>(); });
}

json TLoadClient::Property(const std::string& control, const std::string& name) const
{
    const auto known = controls_.find(control);
    return known == controls_.end() ? json() : known->second.properties.value(name, json());
}

std::string TLoadClient::Text(const std::string& control) const
{
    const auto text = Property(control, "text");
    return text.is_string() ? text.get<std::string>() : std::string();
}

std::string TLoadClient::Cell(const std::string& grid, int row, std::string_view column) const
{
    const auto known = controls_.find(grid);
    if (known == controls_.end() || !known->second.rows.contains(row))
        return {};
    const auto columns = known->second.properties.value("columns", std::vector<std::string>());
    const auto place = std::ranges::find(columns, column) - columns.begin();
    if (place == std::ssize(columns))
        return {};
    return known->second.rows.at(row).at(static_cast<std::size_t>(place) + 1);
}

void TLoadClient::TLink::Sent(std::int64_t number, TEventKind kind, std::string what)
{
    const std::lock_guard lock(mutex_);
    sent_.push_back({number, kind, std::move(what), std::chrono::steady_clock::now()});
}

json TLoadClient::TLink::Next()
{
    std::unique_lock lock(mutex_);
    if (!told_.wait_for(lock, Patience, [this] { return !messages_.empty(); }))
        throw std::runtime_error("the session does not answer");
    const auto message = std::move(messages_.front());
    messages_.pop_front();
    lock.unlock();
    return json::parse(message);
}

void TLoadClient::TLink::Send(std::string message)
{
    const auto now = std::chrono::steady_clock::now();
    const auto done = DoneOf(message);
    const std::lock_guard lock(mutex_);
    for (; !sent_.empty() && sent_.front().number <= done; sent_.pop_front())
        times_.Add(sent_.front().kind, sent_.front().what, now - sent_.front().at);
    messages_.push_back(std::move(message));
    told_.notify_one();
}

} // namespace alinhavo
