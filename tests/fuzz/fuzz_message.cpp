// What a client sends, well-formed or not, in its turn or not, to a session of its own or to another's: each message is carried
// out, passed over, refused or an error; what comes back is well-formed; the session goes on, and no other one notices.
//
// A line of the input is one message: as it stands when it begins with "{", else made of the line's bytes.

#include "../platform/session/roteiro/TPlayedScreens.h"
#include "../platform/session/TOpenHost.h"
#include "Finding.h"
#include "forms/TEdit.h"
#include "platform/web/TSessionRegistry.h"
#include "TFuzzBytes.h"

#include <array>
#include <condition_variable>
#include <future>
#include <mutex>
#include <nlohmann/json.hpp>

namespace {

using namespace alinhavo;
using json = nlohmann::json;

constexpr std::chrono::seconds Patience(20); ///< what takes longer hangs

/// A client that notes what it is told.
class TFuzzClient final : public IClientLink {
public:
    void Send(std::string message) override
    {
        const auto told = json::parse(message, nullptr, false);
        MustHold(told.is_object(), "a client is told what is no message: " + message);
        const std::lock_guard lock(mutex_);
        ++messages_;
        errors_ += told.contains("error");
        done_ = told.value("done", done_);
        turn_ = told.value("turn", turn_);
        const auto dialogs = told.find("dialogs");
        if (dialogs != told.end())
            dialog_ = dialogs->empty() ? 0 : dialogs->back().at("dialog").get<int>();
        told_.notify_all();
    }
    void Close() override { }

    void Await(int number)
    {
        std::unique_lock lock(mutex_);
        MustHold(told_.wait_for(lock, Patience, [&] { return done_ >= number; }), "a session hangs");
    }
    int Messages() const { return Locked(messages_); }
    int Errors() const { return Locked(errors_); }
    int Turn() const { return Locked(turn_); }
    int Dialog() const { return Locked(dialog_); }

private:
    int Locked(const int& number) const
    {
        const std::lock_guard lock(mutex_);
        return number;
    }

    mutable std::mutex mutex_;
    std::condition_variable told_;
    int messages_ = 0;
    int errors_ = 0;
    int done_ = -1;
    int turn_ = 0;
    int dialog_ = 0;
};

/// A user at his session.
struct TUserAtWork {
    TUserAtWork(TSessionRegistry& registry, const std::string& name)
        : secret(registry.LogIn({name, name}))
        , session(registry.Take(secret, TSessionRegistry::New).session)
    {
        session->Attach(client);
        client->Await(0);
    }

    /// What stands in a control when all that was sent is carried out.
    std::string Text(std::string_view control) const
    {
        std::promise<std::string> text;
        session->Ask([&](TApplication* application) {
            const auto* form = application ? application->FindFormByClass("TfmTela") : nullptr;
            const auto* edit = form ? dynamic_cast<const TEdit*>(form->FindComponent(control)) : nullptr;
            text.set_value(edit ? edit->text() : "gone");
        });
        auto answer = text.get_future();
        MustHold(answer.wait_for(Patience) == std::future_status::ready, "a session hangs");
        return answer.get();
    }

    std::string secret;
    std::shared_ptr<TWebSession> session;
    std::shared_ptr<TFuzzClient> client = std::make_shared<TFuzzClient>();
};

constexpr std::array Events = {"focus", "click", "text", "key", "doubleClick", "check", "select", "page", "cell",
    "cellDoubleClick", "cellText", "tick", "title", "menu", "menuItem", "search", "answer", "open", "activate", "close",
    "rows", "dialogRows", "sort", "nothing"};
constexpr std::array Controls = {"edtCodigo", "edtSetor", "edtBarra", "edtTrancado", "edtLeitura", "edtOculto",
    "edtPreco", "edtData", "CbParte", "rgTipo", "CbProximo", "dbg00Grade", "pmGrade", "PageControl2", "tsAcesso",
    "edtAcesso", "btnPergunta", "btnDuas", "btnEntrada", "btnDetalhe", "btnPesquisa", "btnSupervisor", "btnArquivo",
    "btnErro", "btnAlarme", "edtNota", "btnOk", "TbGrade", "nada", ""};
constexpr std::array Forms = {"", "fmTela", "fmDetalhe", "TfmTela", "nada"};
constexpr std::array Keys = {"Enter", "Tab", "Shift+Tab", "Esc", "Up", "Down", "PgDn", "Home", "Left", "Space", "F4",
    "Ctrl+Del", "Del", "Ins", "Alt+c", "5", "x", "ç", "Ctrl+Enter", "Backspace"};
constexpr std::array Columns = {"Cor", "Tam", "Quant", "Saldo", "Sel", "Nada", ""};
constexpr std::array Buttons = {"ok", "cancel", "yes", "no", "maybe"};

/// One message of many kinds, most of the time one that a client could send.
json Made(TFuzzBytes& bytes, int number, const TFuzzClient& client)
{
    const auto deviation = bytes.Byte();
    const std::string event = bytes.Of(Events);
    json message = {
        {"n", number + (deviation == 1 ? 1 : 0)}, {"turn", client.Turn() - (deviation == 2 ? 1 : 0)}, {"event", event}};
    const auto with = [&](std::string_view events) {
        return (" " + std::string(events) + " ").find(" " + event + " ") != std::string::npos;
    };
    if (!with("search answer open dialogRows"))
        message["form"] = bytes.Of(Forms);
    if (!with("search answer open activate close dialogRows"))
        message["control"] = bytes.Of(Controls);
    if (with("key"))
        message["key"] = bytes.Of(Keys);
    if (with("text cellText") && bytes.Choice(2) == 1)
        message["key"] = bytes.Of(Keys);
    if (with("cell cellDoubleClick tick"))
        message["row"] = bytes.Choice(8);
    if (with("cell cellDoubleClick tick title sort"))
        message["column"] = bytes.Of(Columns);
    if (with("sort"))
        message["descending"] = bytes.Choice(2) == 1;
    if (with("check tick"))
        message["checked"] = bytes.Choice(2) == 1;
    if (with("select page"))
        message["index"] = bytes.Choice(6);
    if (with("search answer dialogRows"))
        message["dialog"] = client.Dialog() + (deviation == 3 ? 1 : 0);
    if (with("answer"))
        message["button"] = bytes.Of(Buttons);
    if (with("search answer") && bytes.Choice(2) == 1)
        message["rows"] = {bytes.Choice(5), bytes.Choice(5)};
    if (with("rows dialogRows")) {
        message["first"] = bytes.Byte() * 1000;
        message["count"] = bytes.Byte() * 2;
    }
    if (with("open"))
        message["class"] = bytes.Choice(2) == 1 ? "TfmTela" : "TfmDetalhe";
    if (with("menuItem"))
        message["item"] = bytes.Choice(2) == 1 ? "miZerar" : "Copiar coluna";
    if (with("text cellText search answer"))
        message["text"] = deviation == 4 ? std::string(TClientMessage::MaxBytes, 'x') : bytes.Until('\0');
    if (deviation == 5)
        message["more"] = 1;
    return message;
}

/// Told at the end: an input holds any number of messages.
struct TTotal {
    ~TTotal() { std::fprintf(stderr, "%llu messages\n", messages); }
    unsigned long long messages = 0;
};
TTotal TotalSent;

/// Sends the lines of an input, keeping the numbers as a client does.
class TSender {
public:
    explicit TSender(const TUserAtWork& user)
        : user_(user)
    {
    }

    void Send(const std::string& line)
    {
        ++TotalSent.messages;
        auto text = line;
        bool stranger = false;
        bool waits = true;
        if (!line.starts_with('{')) {
            TFuzzBytes bytes(reinterpret_cast<const std::uint8_t*>(line.data()), line.size());
            const auto manner = bytes.Byte();
            stranger = manner == 1;
            waits = manner % 2 == 0;
            text = Made(bytes, number_ + 1, *user_.client).dump(-1, ' ', false, json::error_handler_t::replace);
        }
        if (stranger)
            return user_.session->Receive(*stranger_, text);
        const auto errors = user_.client->Errors();
        user_.session->Receive(*user_.client, text);
        if (user_.client->Errors() == errors && !TClientMessage::IsCancel(text))
            ++number_;
        if (waits)
            user_.client->Await(number_);
    }
    void Await() { user_.client->Await(number_); }

private:
    const TUserAtWork& user_;
    std::shared_ptr<TFuzzClient> stranger_ = std::make_shared<TFuzzClient>();
    int number_ = 0;
};

constexpr const char* Untouched = "ILESO";

/// Somebody who is at work all the time beside the one who is fuzzed.
TUserAtWork& Neighbour(TSessionRegistry& registry)
{
    static TUserAtWork neighbour(registry, "BIA");
    static const bool begun = [] {
        const json text = {{"n", 1}, {"turn", neighbour.client->Turn()}, {"event", "text"}, {"form", ""},
            {"control", "edtCodigo"}, {"text", Untouched}};
        neighbour.session->Receive(*neighbour.client, text.dump());
        neighbour.client->Await(1);
        return true;
    }();
    MustHold(begun, "the neighbour is missing");
    return neighbour;
}

/// A screen of each kind of control, and nothing behind it.
std::unique_ptr<IWorkplace> OpenScreens(IEventSource& source, IView& view)
{
    auto application = std::make_unique<TApplication>(source, &view);
    application->RegisterForm("TfmTela", [](TApplication& app) { return std::make_unique<TfmTela>(app); });
    application->RegisterForm("TfmDetalhe", [](TApplication& app) { return std::make_unique<TfmDetalhe>(app); });
    application->LoadForm("TfmTela").Show();
    return std::make_unique<TPlainWorkplace>(
        std::move(application), std::vector<TMenuEntry>{{"Testes", "Tela", "TfmTela"}});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static TOpenHost host(OpenScreens);
    static TSessionRegistry registry(host, {});
    const auto& neighbour = Neighbour(registry);
    const auto told = neighbour.client->Messages();
    {
        const TUserAtWork user(registry, "ANA");
        TSender sender(user);
        for (TFuzzBytes bytes(data, size); !bytes.AtEnd();)
            sender.Send(bytes.Line());
        sender.Await();
        user.Text("edtCodigo");
        user.session->End("");
        user.session->Wait();
    }
    registry.EndIdle(std::chrono::steady_clock::now());
    MustHold(neighbour.Text("edtCodigo") == Untouched, "another session's text is another");
    MustHold(neighbour.client->Messages() == told, "another session was told something");
    const std::string secret(reinterpret_cast<const char*>(data), size);
    MustHold(secret == neighbour.secret || !registry.UserOf(secret), "anything is the secret of a login");
    return 0;
}
