#include "platform/report/TLua.h"

#include <cstdlib>
#include <cstring>
#include <lua.hpp>
#include <stdexcept>

namespace alinhavo {
namespace {

constexpr int StepsBetweenChecks = 1000;
constexpr const char* DateKind = "data";
constexpr const char* MarkupKind = "figura";
constexpr const char* RowsKind = "tabela";

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view Text(lua_State* lua, int index)
{
    std::size_t size = 0;
    const char* text = lua_tolstring(lua, index, &size);
    return text ? std::string_view(text, size) : std::string_view{};
}

TDateTime* Date(lua_State* lua, int index) { return static_cast<TDateTime*>(luaL_testudata(lua, index, DateKind)); }

void PushDate(lua_State* lua, TDateTime date)
{
    new (lua_newuserdatauv(lua, sizeof(TDateTime), 0)) TDateTime(date);
    luaL_setmetatable(lua, DateKind);
}

/// The number behind an operand: days of a date, 0 of a null. False when it is none.
bool Number(lua_State* lua, int index, double& number)
{
    if (lua_isnil(lua, index))
        number = 0;
    else if (const auto* date = Date(lua, index))
        number = TValue(*date).AsFloat();
    else if (lua_type(lua, index) == LUA_TNUMBER)
        number = lua_tonumber(lua, index);
    else
        return false;
    return true;
}

void Operands(lua_State* lua, double& left, double& right)
{
    if (!Number(lua, 1, left) || !Number(lua, 2, right))
        luaL_error(lua, "um texto não é um número");
}

// A date and a number of days give a date, two dates the days between them.
int Add(lua_State* lua)
{
    double left = 0;
    double right = 0;
    Operands(lua, left, right);
    if (const auto* date = Date(lua, 1))
        PushDate(lua, date->AddDays(static_cast<std::int64_t>(right)));
    else if (const auto* other = Date(lua, 2))
        PushDate(lua, other->AddDays(static_cast<std::int64_t>(left)));
    else
        lua_pushnumber(lua, left + right);
    return 1;
}

int Subtract(lua_State* lua)
{
    double left = 0;
    double right = 0;
    Operands(lua, left, right);
    const auto* date = Date(lua, 1);
    if (date && !Date(lua, 2))
        PushDate(lua, date->AddDays(-static_cast<std::int64_t>(right)));
    else
        lua_pushnumber(lua, left - right);
    return 1;
}

int Multiply(lua_State* lua)
{
    double left = 0;
    double right = 0;
    Operands(lua, left, right);
    lua_pushnumber(lua, left * right);
    return 1;
}

int Divide(lua_State* lua)
{
    double left = 0;
    double right = 0;
    Operands(lua, left, right);
    if (right == 0)
        lua_pushnil(lua);
    else
        lua_pushnumber(lua, left / right);
    return 1;
}

int Negate(lua_State* lua)
{
    lua_pushinteger(lua, 0);
    return 1;
}

int Concatenate(lua_State* lua)
{
    std::string text;
    for (int index = 1; index <= 2; ++index) {
        if (const auto* date = Date(lua, index))
            text += Shown(TValue(*date));
        else if (!lua_isnil(lua, index))
            text += Text(lua, index);
    }
    lua_pushlstring(lua, text.data(), text.size());
    return 1;
}

/// Null is below every text and every date, and is 0 beside a number.
int Compare(lua_State* lua)
{
    double left = 0;
    double right = 0;
    if (Number(lua, 1, left) && Number(lua, 2, right))
        return left < right ? -1 : (left > right ? 1 : 0);
    return Text(lua, 1).compare(Text(lua, 2));
}

int Less(lua_State* lua)
{
    lua_pushboolean(lua, Compare(lua) < 0);
    return 1;
}

int LessOrEqual(lua_State* lua)
{
    lua_pushboolean(lua, Compare(lua) <= 0);
    return 1;
}

int Equal(lua_State* lua)
{
    const auto* left = Date(lua, 1);
    const auto* right = Date(lua, 2);
    lua_pushboolean(lua, left && right && *left == *right);
    return 1;
}

void AddMethod(lua_State* lua, const char* name, lua_CFunction function)
{
    lua_pushcfunction(lua, function);
    lua_setfield(lua, -2, name);
}

/// On the table on top.
void AddArithmetic(lua_State* lua)
{
    AddMethod(lua, "__add", Add);
    AddMethod(lua, "__sub", Subtract);
    AddMethod(lua, "__mul", Multiply);
    AddMethod(lua, "__div", Divide);
    AddMethod(lua, "__concat", Concatenate);
    AddMethod(lua, "__lt", Less);
    AddMethod(lua, "__le", LessOrEqual);
}

int DropMarkup(lua_State* lua)
{
    static_cast<TMarkup*>(lua_touserdata(lua, 1))->~TMarkup();
    return 0;
}

/// What Lua says of an error, without the place, which is said by us.
std::string Reason(std::string_view message)
{
    if (message.starts_with("[string"))
        message.remove_prefix(std::min(message.size(), message.find("]:") + 2));
    const auto colon = message.find(": ");
    if (colon != std::string_view::npos && colon < 5)
        message.remove_prefix(colon + 2);
    return std::string(message);
}

} // namespace

TLua::TLua(INames& names, const TReportLimits& limits, const std::atomic<bool>* cancelled)
    : names_(names)
    , limits_(limits)
    , cancelled_(cancelled)
    , lua_(lua_newstate(&TLua::Allocate, this))
{
    if (!lua_)
        throw std::bad_alloc();
    *static_cast<TLua**>(lua_getextraspace(lua_)) = this;
    MakeNullHarmless();
    MakeEnvironment();
    lua_sethook(lua_, &TLua::Tick, LUA_MASKCOUNT, StepsBetweenChecks);
}

TLua::~TLua() { lua_close(lua_); }

void* TLua::Allocate(void* self, void* block, std::size_t before, std::size_t wanted)
{
    auto& lua = *static_cast<TLua*>(self);
    const std::size_t held = block ? before : 0;
    if (wanted == 0) {
        std::free(block);
        lua.used_ -= held;
        return nullptr;
    }
    if (wanted > held && lua.used_ + (wanted - held) > lua.limits_.memory)
        return nullptr;
    void* moved = std::realloc(block, wanted);
    if (moved)
        lua.used_ += wanted - held;
    return moved;
}

TLua& TLua::Of(lua_State* lua) { return **static_cast<TLua**>(lua_getextraspace(lua)); }

void TLua::Tick(lua_State* lua, lua_Debug*)
{
    auto& self = Of(lua);
    if (self.cancelled_ && *self.cancelled_) {
        self.failure_ = std::make_exception_ptr(EReportCancelled());
        luaL_error(lua, "cancelado");
    }
    if (std::chrono::steady_clock::now() > self.deadline_)
        luaL_error(lua, "a expressão demora demais (um laço sem fim?)");
}

// Arithmetic on a null and on dates; dates, figures and datasets are objects that an expression cannot look into.
void TLua::MakeNullHarmless()
{
    lua_pushnil(lua_);
    lua_newtable(lua_);
    AddArithmetic(lua_);
    AddMethod(lua_, "__unm", Negate);
    lua_setmetatable(lua_, -2);
    lua_pop(lua_, 1);

    luaL_newmetatable(lua_, DateKind);
    AddArithmetic(lua_);
    AddMethod(lua_, "__eq", Equal);
    luaL_newmetatable(lua_, MarkupKind);
    AddMethod(lua_, "__gc", DropMarkup);
    luaL_newmetatable(lua_, RowsKind);
    AddMethod(lua_, "__index", &TLua::Field);
    lua_pop(lua_, 3);
}

// The table that all expressions take for the world: it is empty, and asks for each name.
void TLua::MakeEnvironment()
{
    lua_newtable(lua_);
    lua_newtable(lua_);
    AddMethod(lua_, "__index", &TLua::Index);
    AddMethod(lua_, "__newindex", &TLua::Assign);
    lua_setmetatable(lua_, -2);
    lua_rawseti(lua_, LUA_REGISTRYINDEX, LUA_RIDX_GLOBALS);
}

void TLua::AddFunction(std::string name, TFunction function)
{
    functionsByName_.emplace(std::move(name), functions_.size());
    functions_.push_back(std::move(function));
}

TLua::TChunk TLua::Compile(const TTemplateExpression& expression)
{
    if (const auto found = chunks_.find(expression.source); found != chunks_.end())
        return found->second;
    NoteCalledNames(expression.source);
    const auto code = "return " + expression.source;
    const int status = luaL_loadbufferx(lua_, code.data(), code.size(), "=", "t");
    if (status != LUA_OK)
        Fail(expression, status);
    const auto chunk = luaL_ref(lua_, LUA_REGISTRYINDEX);
    chunks_.emplace(expression.source, chunk);
    return chunk;
}

/// A name with a parenthesis behind it is called; all others are asked for as values.
void TLua::NoteCalledNames(std::string_view source)
{
    for (std::size_t at = 0; at < source.size();) {
        if (!IsLetter(source[at])) {
            ++at;
            continue;
        }
        const auto begin = at;
        while (at < source.size() && (IsLetter(source[at]) || IsDigit(source[at])))
            ++at;
        const auto next = source.find_first_not_of(" \t", at);
        if (next != std::string_view::npos && (source[next] == '(' || source[next] == '"' || source[next] == '\''))
            called_.emplace(source.substr(begin, at - begin));
    }
}

TReportValue TLua::Run(TChunk chunk, const TTemplateExpression& expression)
{
    if (depth_ == 0)
        deadline_ = std::chrono::steady_clock::now() + limits_.expression;
    if (!lua_checkstack(lua_, 20))
        throw ETemplate(expression.place, expression.source, "a expressão chama a si mesma sem fim.");
    lua_rawgeti(lua_, LUA_REGISTRYINDEX, chunk);
    ++depth_;
    const int status = lua_pcall(lua_, 0, 1, 0);
    --depth_;
    if (status != LUA_OK)
        Fail(expression, status);
    if (const int type = lua_type(lua_, -1); type == LUA_TFUNCTION || type == LUA_TTABLE) {
        lua_pop(lua_, 1);
        throw ETemplate(expression.place, expression.source, "o resultado não é um valor.");
    }
    TReportValue result = At(-1);
    lua_pop(lua_, 1);
    return result;
}

void TLua::Fail(const TTemplateExpression& expression, int status)
{
    const std::string reason = status == LUA_ERRMEM ? "a expressão usa memória demais" : Reason(Text(lua_, -1));
    lua_pop(lua_, 1);
    if (failure_)
        std::rethrow_exception(std::exchange(failure_, nullptr));
    throw ETemplate(expression.place, expression.source, reason + ".");
}

/// Errors of our own functions are errors of the expression; a template's error within (an aggregate's expression)
/// and the cancelling stop everything.
int TLua::Guarded(const std::function<int()>& action)
{
    std::string message;
    try {
        return action();
    } catch (const ETemplate&) {
        failure_ = std::current_exception();
    } catch (const EReportCancelled&) {
        failure_ = std::current_exception();
    } catch (const std::exception& error) {
        message = error.what();
    }
    return luaL_error(lua_, "%s", message.c_str());
}

int TLua::Index(lua_State* lua)
{
    auto& self = Of(lua);
    const std::string name(Text(lua, 2));
    return self.Guarded([&] {
        self.PushName(name);
        return 1;
    });
}

void TLua::PushName(std::string_view name)
{
    const std::string key(name);
    const bool called = called_.contains(key);
    if (const auto found = functionsByName_.find(key); called && found != functionsByName_.end()) {
        lua_pushinteger(lua_, static_cast<lua_Integer>(found->second));
        return lua_pushcclosure(lua_, &TLua::CallFunction, 1);
    }
    if (const auto value = names_.Value(name))
        return Push(*value);
    if (names_.IsDataSet(name)) {
        new (lua_newuserdatauv(lua_, sizeof(int), 1)) int(0);
        lua_pushlstring(lua_, name.data(), name.size());
        lua_setiuservalue(lua_, -2, 1);
        return luaL_setmetatable(lua_, RowsKind);
    }
    if (!called)
        return Push(names_.Unknown(name, {}));
    lua_pushlstring(lua_, name.data(), name.size());
    lua_pushcclosure(lua_, &TLua::CallUnknown, 1);
}

int TLua::Assign(lua_State* lua) { return luaL_error(lua, "um nome não pode receber um valor aqui; use %% define"); }

int TLua::CallFunction(lua_State* lua)
{
    auto& self = Of(lua);
    return self.Guarded([&] {
        const auto& function = self.functions_[static_cast<std::size_t>(lua_tointeger(lua, lua_upvalueindex(1)))];
        self.Push(function(self.Arguments(1)));
        return 1;
    });
}

int TLua::CallUnknown(lua_State* lua)
{
    auto& self = Of(lua);
    return self.Guarded([&] {
        std::vector<TValue> arguments;
        for (const auto& argument : self.Arguments(1)) {
            const auto* value = std::get_if<TValue>(&argument);
            arguments.push_back(value ? *value : TValue(Shown(argument)));
        }
        self.Push(self.names_.Unknown(Text(lua, lua_upvalueindex(1)), arguments));
        return 1;
    });
}

int TLua::Field(lua_State* lua)
{
    auto& self = Of(lua);
    lua_getiuservalue(lua, 1, 1);
    const std::string dataset(Text(lua, -1));
    const std::string field(Text(lua, 2));
    return self.Guarded([&] {
        self.Push(self.names_.Cell(dataset, field));
        return 1;
    });
}

void TLua::Push(const TReportValue& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return lua_pushboolean(lua_, *flag);
    if (const auto* markup = std::get_if<TMarkup>(&value)) {
        new (lua_newuserdatauv(lua_, sizeof(TMarkup), 0)) TMarkup(*markup);
        return luaL_setmetatable(lua_, MarkupKind);
    }
    Push(std::get<TValue>(value));
}

void TLua::Push(const TValue& value)
{
    if (value.IsNull())
        lua_pushnil(lua_);
    else if (value.IsInteger())
        lua_pushinteger(lua_, value.AsInteger());
    else if (value.IsFloat())
        lua_pushnumber(lua_, value.AsFloat());
    else if (value.IsDate())
        PushDate(lua_, value.AsDateTime());
    else
        lua_pushlstring(lua_, value.Text().data(), value.Text().size());
}

TReportValue TLua::At(int index)
{
    switch (lua_type(lua_, index)) {
    case LUA_TBOOLEAN:
        return lua_toboolean(lua_, index) != 0;
    case LUA_TNUMBER:
        if (lua_isinteger(lua_, index))
            return TValue(static_cast<std::int64_t>(lua_tointeger(lua_, index)));
        return TValue(lua_tonumber(lua_, index));
    case LUA_TSTRING:
        return TValue(Text(lua_, index));
    case LUA_TUSERDATA:
        break;
    default:
        return TValue();
    }
    if (const auto* date = Date(lua_, index))
        return TValue(*date);
    if (const auto* markup = static_cast<TMarkup*>(luaL_testudata(lua_, index, MarkupKind)))
        return *markup;
    return TValue();
}

TLua::TArguments TLua::Arguments(int first)
{
    TArguments arguments;
    for (int index = first; index <= lua_gettop(lua_); ++index)
        arguments.push_back(At(index));
    return arguments;
}

} // namespace alinhavo
