#pragma once

#include "platform/report/INames.h"
#include "platform/report/TTemplate.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

struct lua_State;
struct lua_Debug;

namespace alinhavo {

/// How much a template may use up.
struct TReportLimits {
    std::chrono::milliseconds expression{2000}; ///< time for one evaluation
    std::size_t memory = std::size_t(64) << 20; ///< of all expressions together
    std::size_t output = std::size_t(512) << 20; ///< size of the report
};

/// Lua for the expressions of one report. An expression sees its names and the functions added here, nothing else: no file,
/// no process, no library of Lua. Null counts as 0 and as the empty text.
class TLua {
public:
    /// The arguments of a function, from 0; conversions are those of TValue.
    using TArguments = std::vector<TReportValue>;
    using TFunction = std::function<TReportValue(const TArguments&)>;
    using TChunk = int;

    /// What is referred to outlives it. `cancelled` may be set by another thread; null: it cannot be cancelled.
    TLua(INames& names, const TReportLimits& limits, const std::atomic<bool>* cancelled);
    ~TLua();
    TLua(const TLua&) = delete;
    TLua& operator=(const TLua&) = delete;

    void AddFunction(std::string name, TFunction function);

    /// ETemplate when it is no expression. The same source is compiled once.
    TChunk Compile(const TTemplateExpression& expression);
    /// ETemplate, which shows the expression, when it fails or takes too much.
    TReportValue Evaluate(const TTemplateExpression& expression) { return Run(Compile(expression), expression); }
    TReportValue Run(TChunk chunk, const TTemplateExpression& expression);

private:
    static void* Allocate(void* self, void* block, std::size_t before, std::size_t wanted);
    static void Tick(lua_State* lua, lua_Debug*);
    static TLua& Of(lua_State* lua);
    static int Index(lua_State* lua);
    static int Assign(lua_State* lua);
    static int CallFunction(lua_State* lua);
    static int CallUnknown(lua_State* lua);
    static int Field(lua_State* lua);

    void MakeEnvironment();
    void MakeNullHarmless();
    void NoteCalledNames(std::string_view source);
    int Guarded(const std::function<int()>& action);
    void PushName(std::string_view name);
    void Push(const TReportValue& value);
    void Push(const TValue& value);
    TReportValue At(int index);
    TArguments Arguments(int first);
    [[noreturn]] void Fail(const TTemplateExpression& expression, int status);

    INames& names_;
    TReportLimits limits_;
    const std::atomic<bool>* cancelled_;
    std::size_t used_ = 0; ///< memory of Lua; before what takes it
    lua_State* lua_ = nullptr;
    std::chrono::steady_clock::time_point deadline_;
    int depth_ = 0; ///< evaluations under way, one inside the other
    std::exception_ptr failure_; ///< what stopped an evaluation for good
    std::vector<TFunction> functions_;
    std::unordered_map<std::string, std::size_t> functionsByName_;
    std::unordered_set<std::string> called_; ///< names that some expression calls
    std::unordered_map<std::string, TChunk> chunks_;
};

} // namespace alinhavo
