#include "platform/web/TClientMessage.h"

#include "platform/web/EProtocolError.h"

#include <algorithm>
#include <array>
#include <limits>
#include <nlohmann/json.hpp>

namespace alinhavo {

namespace {

using json = nlohmann::json;

constexpr std::size_t MaxName = 100;
constexpr std::size_t MaxKeyName = 20;

[[noreturn]] void Refuse(std::string_view member, std::string_view what)
{
    throw EProtocolError(std::string(member) + ": " + std::string(what));
}

std::string Text(const json& value, std::string_view member, std::size_t maxLength = TClientMessage::MaxBytes)
{
    if (!value.is_string())
        Refuse(member, "a text is expected");
    const auto& text = value.get_ref<const std::string&>();
    if (text.size() > maxLength)
        Refuse(member, "too long");
    return text;
}

std::string Name(const json& value, std::string_view member) { return Text(value, member, MaxName); }

std::int64_t Number(const json& value, std::string_view member)
{
    if (!value.is_number_unsigned())
        Refuse(member, "a whole number from 0 is expected");
    const auto number = value.get<std::uint64_t>();
    if (number > std::numeric_limits<std::int32_t>::max())
        Refuse(member, "too large");
    return static_cast<std::int64_t>(number);
}

bool Flag(const json& value, std::string_view member)
{
    if (!value.is_boolean())
        Refuse(member, "true or false is expected");
    return value.get<bool>();
}

TKey Key(const json& value, std::string_view member)
{
    auto key = TKey::Parse(Text(value, member, MaxKeyName));
    if (key.name.empty())
        Refuse(member, "a key is expected");
    return key;
}

std::vector<std::int64_t> Numbers(const json& value, std::string_view member)
{
    if (!value.is_array())
        Refuse(member, "a list of whole numbers is expected");
    std::vector<std::int64_t> numbers;
    for (const auto& number : value)
        numbers.push_back(Number(number, member));
    return numbers;
}

TModalResult Button(const json& value, std::string_view member)
{
    const auto name = Text(value, member, MaxKeyName);
    if (name == "ok")
        return TModalResult::Ok;
    if (name == "cancel")
        return TModalResult::Cancel;
    if (name == "yes")
        return TModalResult::Yes;
    if (name == "no")
        return TModalResult::No;
    Refuse(member, "unknown button");
}

struct TMember {
    std::string_view name;
    void (*read)(TClientMessage&, const json&, std::string_view member);
};

constexpr std::array Members = {
    TMember{"form",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.form = Name(value, member);
        }},
    TMember{"control",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.control = Name(value, member);
        }},
    TMember{"column",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.column = Name(value, member);
        }},
    TMember{"class",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.text = Name(value, member);
        }},
    TMember{"item",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.text = Name(value, member);
        }},
    TMember{"text",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.text = Text(value, member);
        }},
    TMember{"key",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.key = Key(value, member);
        }},
    TMember{"checked",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.flag = Flag(value, member);
        }},
    TMember{"descending",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.flag = Flag(value, member);
        }},
    TMember{"index",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.index = static_cast<int>(Number(value, member));
        }},
    TMember{"row",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.row = Number(value, member);
        }},
    TMember{"rows",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.rows = Numbers(value, member);
        }},
    TMember{"button",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.answer = Button(value, member);
        }},
    TMember{"password",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.event.password = Text(value, member);
        }},
    TMember{"dialog",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.dialog = Number(value, member);
        }},
    TMember{"first",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.first = Number(value, member);
        }},
    TMember{"count",
        [](TClientMessage& message, const json& value, std::string_view member) {
            message.count = Number(value, member);
        }},
};

/// An event's name and the members that stand beside "n", "turn" and "event"; those with a "?" may be left out.
struct TShape {
    std::string_view name;
    TUserEvent::TKind kind;
    std::array<std::string_view, 5> members;
    TClientMessage::TRequest request = TClientMessage::TRequest::None;
};

using TEventKind = TUserEvent::TKind;
using TRequest = TClientMessage::TRequest;
constexpr std::array Shapes = {
    TShape{"focus", TEventKind::Focus, {"form", "control"}},
    TShape{"text", TEventKind::Text, {"form", "control", "text", "key?"}},
    TShape{"key", TEventKind::Key, {"form", "control", "key"}},
    TShape{"click", TEventKind::Click, {"form", "control"}},
    TShape{"doubleClick", TEventKind::DoubleClick, {"form", "control", "index?"}},
    TShape{"check", TEventKind::Check, {"form", "control", "checked"}},
    TShape{"select", TEventKind::Select, {"form", "control", "index"}},
    TShape{"page", TEventKind::Page, {"form", "control", "index"}},
    TShape{"cell", TEventKind::GridCell, {"form", "control", "row", "column"}},
    TShape{"cellText", TEventKind::GridText, {"form", "control", "text", "key?"}},
    TShape{"paste", TEventKind::GridPaste, {"form", "control", "text"}},
    TShape{"title", TEventKind::GridTitle, {"form", "control", "column"}},
    TShape{"cellDoubleClick", TEventKind::GridDouble, {"form", "control", "row", "column"}},
    TShape{"tick", TEventKind::GridTick, {"form", "control", "row", "column", "checked"}},
    TShape{"menu", TEventKind::OpenMenu, {"form", "control", "row?", "column?"}},
    TShape{"menuItem", TEventKind::MenuItem, {"form", "control", "item"}},
    TShape{"search", TEventKind::Search, {"dialog", "text", "rows?"}},
    TShape{"answer", TEventKind::Answer, {"dialog", "button", "text?", "rows?", "password?"}},
    TShape{"open", TEventKind::OpenForm, {"class"}},
    TShape{"activate", TEventKind::ActivateForm, {"form"}},
    TShape{"close", TEventKind::CloseForm, {"form"}},
    TShape{"rows", TEventKind::Work, {"form", "control", "first", "count"}, TRequest::Rows},
    TShape{"dialogRows", TEventKind::Work, {"dialog", "first", "count"}, TRequest::Rows},
    TShape{"sort", TEventKind::Work, {"form", "control", "column", "descending"}, TRequest::Order},
};

const TShape& ShapeOf(const json& message)
{
    const auto found = message.find("event");
    if (found == message.end())
        Refuse("event", "missing");
    const auto name = Text(*found, "event", MaxName);
    const auto shape = std::ranges::find(Shapes, name, &TShape::name);
    if (shape == Shapes.end())
        Refuse("event", "unknown");
    return *shape;
}

/// True when the member is there.
bool ReadMember(TClientMessage& message, const json& object, std::string_view name)
{
    const bool optional = name.ends_with('?');
    if (optional)
        name.remove_suffix(1);
    const auto value = object.find(name);
    if (value == object.end()) {
        if (!optional)
            Refuse(name, "missing");
        return false;
    }
    std::ranges::find(Members, name, &TMember::name)->read(message, *value, name);
    return true;
}

std::int64_t ReadNumber(const json& object, std::string_view name)
{
    const auto value = object.find(name);
    if (value == object.end())
        Refuse(name, "missing");
    return Number(*value, name);
}

} // namespace

bool TClientMessage::IsCancel(std::string_view text)
{
    constexpr std::size_t LongEnough = 40;
    return text.size() <= LongEnough && json::parse(text, nullptr, false) == json({{"cancel", true}});
}

TClientMessage TClientMessage::Decode(std::string_view text)
{
    if (text.size() > MaxBytes)
        throw EProtocolError("message too long");
    const auto object = json::parse(text, nullptr, false);
    if (!object.is_object())
        throw EProtocolError("not a JSON object");

    const auto& shape = ShapeOf(object);
    TClientMessage message;
    message.event.kind = shape.kind;
    message.request = shape.request;
    message.number = ReadNumber(object, "n");
    message.turn = ReadNumber(object, "turn");
    std::size_t known = 3;
    for (auto member : shape.members) {
        if (!member.empty() && ReadMember(message, object, member))
            ++known;
    }
    if (object.size() != known)
        throw EProtocolError(std::string(shape.name) + ": a member that does not belong there");
    if (message.count > MaxRows)
        Refuse("count", "too large");
    return message;
}

} // namespace alinhavo
