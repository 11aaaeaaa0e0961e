#include "platform/web/TWebApi.h"

#include "forms/IShownReport.h"
#include "forms/TApplication.h"
#include "forms/TGrid.h"
#include "platform/report/commaSeparated.h"
#include "platform/report/TSpreadsheet.h"
#include "platform/session/ISessionHost.h"
#include "platform/web/TSessionRegistry.h"

#include <algorithm>
#include <array>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <nlohmann/json.hpp>

namespace alinhavo {

namespace http = boost::beast::http;
using json = nlohmann::json;

struct TWebApi::TRoute {
    std::string_view path;
    http::verb verb = http::verb::get;
    void (TWebApi::*answer)(const TCall&) = nullptr;
    bool open = false; ///< to whoever has no login
    bool below = false; ///< also every path below this one

    bool Holds(std::string_view asked) const
    {
        if (!below)
            return asked == path;
        return asked.starts_with(path) && asked.size() > path.size() + 1 && asked[path.size()] == '/';
    }
};

namespace {

constexpr std::string_view SpreadsheetType = "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet";
constexpr std::string_view ReportPath = "/relatorio";
constexpr std::string_view FilePath = "/arquivo";
constexpr std::size_t MaxCredential = 200; ///< bytes of a name or a password

constexpr std::string_view NoLogin = "É preciso entrar.";
constexpr std::string_view WrongPassword = "Usuário ou senha inválidos.";
constexpr std::string_view OtherPage = "Acesso negado a partir de outra página.";
constexpr std::string_view NoSession = "Essa sessão já terminou.";
constexpr std::string_view NoReport = "O relatório não está aberto.";
constexpr std::string_view NoGrid = "A grade não está na tela.";
constexpr std::string_view Malformed = "O pedido não está como deveria.";

/// The object in the request's body; throws json::exception when it holds none.
json BodyOf(const THttpRequest& request)
{
    const auto type = request[http::field::content_type];
    if (!type.starts_with("application/json"))
        return json::parse("");
    auto body = json::parse(request.body());
    return body.is_object() ? body : json::parse("");
}

/// A text member, empty when it is missing; throws json::exception when it is something else.
std::string TextOf(const json& object, const char* member)
{
    const auto found = object.find(member);
    return found == object.end() || found->is_null() ? std::string() : found->get<std::string>();
}

} // namespace

TWebApi::TWebApi(
    boost::asio::io_context& context, ISessionHost& host, TSessionRegistry& sessions, const TOptions& options)
    : context_(context)
    , host_(host)
    , sessions_(sessions)
    , encrypted_(options.encrypted)
    , pdf_(options.pdfCommand)
    , guard_(options.firstPenalty)
{
}

TWebApi::~TWebApi()
{
    files_.stop();
    prints_.stop();
    passwords_.stop();
    files_.join();
    prints_.join();
    passwords_.join();
}

std::span<const TWebApi::TRoute> TWebApi::Routes()
{
    static constexpr std::array routes = {
        TRoute{"/quem", http::verb::get, &TWebApi::WhoIs},
        TRoute{"/entrar", http::verb::post, &TWebApi::ComeIn, true},
        TRoute{"/sair", http::verb::post, &TWebApi::GoOut},
        TRoute{"/preferencias", http::verb::get, &TWebApi::GiveSettings},
        TRoute{"/preferencias", http::verb::put, &TWebApi::TakeSettings},
        TRoute{FilePath, http::verb::post, &TWebApi::TakeFile},
        TRoute{.path = FilePath, .verb = http::verb::get, .answer = &TWebApi::GiveFile, .below = true},
        TRoute{.path = ReportPath, .verb = http::verb::get, .answer = &TWebApi::GiveReport, .below = true},
        TRoute{.path = ReportPath, .verb = http::verb::post, .answer = &TWebApi::SendReport, .below = true},
        TRoute{"/grade", http::verb::get, &TWebApi::GiveGrid},
    };
    return routes;
}

bool TWebApi::Knows(std::string_view path)
{
    return std::ranges::any_of(Routes(), [&](const TRoute& route) { return route.Holds(path); });
}

bool TWebApi::TakesFile(const THttpRequest& request)
{
    return request.method() == http::verb::post && PathOf(request) == FilePath;
}

void TWebApi::Answer(const THttpRequest& request, const std::string& address, TReply reply)
{
    TCall call{request, address, std::move(reply), {}, {}};
    const auto path = PathOf(request);
    const auto route = std::ranges::find_if(
        Routes(), [&](const TRoute& each) { return each.Holds(path) && each.verb == request.method(); });
    if (route == Routes().end())
        return call.Refuse(http::status::method_not_allowed, "Método não permitido.");
    if (request.find(http::field::origin) != request.end() && !FromOwnPage(request, encrypted_))
        return call.Refuse(http::status::forbidden, OtherPage);
    if (!route->open) {
        call.secret = CookieOf(request, SessionCookie);
        const auto user = sessions_.UserOf(call.secret);
        if (!user)
            return call.Refuse(http::status::unauthorized, NoLogin);
        call.user = *user;
    }
    try {
        (this->*route->answer)(call);
    } catch (const json::exception&) {
        call.Refuse(http::status::bad_request, Malformed);
    } catch (const std::exception& error) {
        call.Refuse(http::status::internal_server_error, error.what());
    }
}

void TWebApi::TCall::Give(http::status status, const json& answer) const { reply(AnswerJson(request, status, answer)); }

void TWebApi::TCall::Refuse(http::status status, std::string_view text) const { Give(status, {{"erro", text}}); }

json TWebApi::Welcome(const TSessionUser& user) const
{
    auto sessions = json::array();
    for (const auto& session : sessions_.SessionsOf(user.code)) {
        const auto note = session->Note();
        sessions.push_back(
            {{"id", note.id}, {"desde", note.desde.TextWithHour()}, {"uso", note.ultimoUso.TextWithHour()},
                {"telas", note.telas}, {"pendente", !note.pendenteDesde.IsBlank()}, {"aberta", note.navegadorAberto}});
    }
    return {{"usuario", user.code}, {"nome", user.name}, {"sessoes", std::move(sessions)}};
}

void TWebApi::WhoIs(const TCall& call) { call.Give(http::status::ok, Welcome(call.user)); }

void TWebApi::ComeIn(const TCall& call)
{
    const auto body = BodyOf(call.request);
    const auto user = TextOf(body, "usuario");
    const auto password = TextOf(body, "senha");
    if (user.empty() || user.size() > MaxCredential || password.size() > MaxCredential)
        return call.Refuse(http::status::unauthorized, WrongPassword);

    const auto wait = guard_.Begin(user, call.address, std::chrono::steady_clock::now());
    if (wait > TLoginGuard::Longest)
        return call.Refuse(
            http::status::too_many_requests, "Muitas tentativas com senha errada. Espere um minuto e tente de novo.");
    const auto timer = std::make_shared<boost::asio::steady_timer>(context_, wait);
    timer->async_wait([this, timer, call, user, password](boost::system::error_code) {
        boost::asio::post(passwords_, [this, call, user, password] { LookAtPassword(call, user, password); });
    });
}

void TWebApi::LookAtPassword(const TCall& call, const std::string& name, const std::string& password)
try {
    const auto user = host_.LogIn(name, password);
    if (!user) {
        guard_.Failed(name, call.address, std::chrono::steady_clock::now());
        return call.Refuse(http::status::unauthorized, WrongPassword);
    }
    guard_.Succeeded(name, call.address);
    auto welcome = Welcome(*user);
    if (sessions_.Full() && welcome["sessoes"].empty())
        return call.Refuse(http::status::service_unavailable, TSessionRegistry::TooMany);
    if (const auto notice = host_.TakeNotice(*user); !notice.empty())
        welcome["aviso"] = notice;
    auto response = AnswerJson(call.request, http::status::ok, welcome);
    response.set(http::field::set_cookie, CookieOfLogin(sessions_.LogIn(*user), encrypted_));
    call.reply(std::move(response));
} catch (const std::exception& error) {
    call.Refuse(http::status::internal_server_error, error.what());
}

void TWebApi::GoOut(const TCall& call)
{
    const auto body = BodyOf(call.request);
    const auto session = sessions_.Find(call.secret, TextOf(body, "sessao"));
    if (session && !session->Note().pendenteDesde.IsBlank() && !body.value("desfazer", false))
        return call.Give(
            http::status::conflict, {{"erro", "Há trabalho que ainda não foi gravado."}, {"pendente", true}});
    if (session)
        session->End("");
    auto response = AnswerJson(call.request, http::status::ok, json::object());
    if (!sessions_.LogOut(call.secret, session ? session->Id() : std::string()))
        response.set(http::field::set_cookie, CookieOfLogin({}, encrypted_));
    call.reply(std::move(response));
}

void TWebApi::GiveSettings(const TCall& call)
{
    auto all = json::object();
    for (const auto& [name, value] : host_.Settings(call.user))
        all[name] = json::parse(value, nullptr, false);
    call.Give(http::status::ok, all);
}

void TWebApi::TakeSettings(const TCall& call)
{
    const auto body = BodyOf(call.request);
    TClientSettings settings;
    for (const auto& [name, value] : body.items()) {
        const auto text = value.is_null() ? std::string() : value.dump();
        if (name.empty() || name.size() > ISessionHost::MaxSettingName || text.size() > ISessionHost::MaxSetting)
            return call.Refuse(http::status::bad_request, "A preferência é grande demais.");
        settings[name] = text;
    }
    host_.WriteSettings(call.user, settings);
    call.Give(http::status::ok, json::object());
}

/// Null when the user has no such session.
std::shared_ptr<TWebSession> TWebApi::SessionOf(const TCall& call) const
{
    return sessions_.Find(call.secret, QueryOf(call.request, "sessao"));
}

// A page elsewhere must not bring files: here the Origin may not be missing.
void TWebApi::TakeFile(const TCall& call)
{
    if (!FromOwnPage(call.request, encrypted_))
        return call.Refuse(http::status::forbidden, OtherPage);
    const auto session = SessionOf(call);
    if (!session)
        return call.Refuse(http::status::not_found, NoSession);
    boost::asio::post(files_, [call, session] {
        try {
            const auto token = session->Files().Keep(QueryOf(call.request, "nome"), call.request.body());
            call.Give(http::status::ok, {{"arquivo", token}});
        } catch (const std::exception& error) {
            call.Refuse(http::status::payload_too_large, error.what());
        }
    });
}

void TWebApi::GiveFile(const TCall& call)
{
    const auto session = SessionOf(call);
    const auto file = session ? session->Files().Find(PathOf(call.request).substr(FilePath.size() + 1)) : std::nullopt;
    if (!file)
        return call.Refuse(http::status::not_found, "Arquivo não encontrado.");
    boost::asio::post(files_, [call, file = *file] { call.reply(AnswerServerFile(call.request, file)); });
}

// The ending of the path says in which form it is wanted; without one, to be read here and now.
void TWebApi::GiveReport(const TCall& call)
{
    const auto name = PathOf(call.request).substr(ReportPath.size() + 1);
    const auto token = name.substr(0, name.find('.'));
    const auto ending = name.substr(token.size());
    const auto session = SessionOf(call);
    const auto report = session ? session->Files().Report(token) : std::nullopt;
    if (!report || (ending == ".txt" && !report->plainText))
        return call.Refuse(http::status::not_found, NoReport);
    if (ending.empty())
        return call.reply(AnswerReport(call.request, *report->html));
    if (ending == ".html")
        return call.reply(
            AnswerDownload(call.request, *report->html, "text/html; charset=utf-8", "relatorio" + ending));
    if (ending == ".txt")
        return call.reply(
            AnswerDownload(call.request, *report->plainText, "text/plain; charset=utf-8", "relatorio" + ending));
    if (ending == ".xlsx")
        return OfReport(session, token, call, [call](const IShownReport& shown) {
            call.reply(AnswerDownload(call.request, shown.Workbook(), SpreadsheetType, "relatorio.xlsx"));
        });
    if (ending != ".pdf")
        return call.Refuse(http::status::not_found, NoReport);
    boost::asio::post(prints_, [this, call, html = report->html] {
        try {
            call.reply(AnswerDownload(call.request, pdf_.Print(*html), "application/pdf", "relatorio.pdf"));
        } catch (const std::exception& error) {
            call.Refuse(http::status::internal_server_error, error.what());
        }
    });
}

void TWebApi::SendReport(const TCall& call)
{
    const auto address = TextOf(BodyOf(call.request), "email");
    const auto session = SessionOf(call);
    if (!session)
        return call.Refuse(http::status::not_found, NoSession);
    OfReport(session, PathOf(call.request).substr(ReportPath.size() + 1), call, [call, address](IShownReport& report) {
        report.SendTo(address);
        call.Give(http::status::ok, json::object());
    });
}

/// On the session's thread, which the report's data belong to.
void TWebApi::OfReport(const std::shared_ptr<TWebSession>& session, const std::string& token, const TCall& call,
    const std::function<void(IShownReport&)>& work)
{
    session->Ask([session = session.get(), token, call, work](const TApplication* application) {
        auto* report = application ? session->Report(token) : nullptr;
        if (!report)
            return call.Refuse(http::status::not_found, NoReport);
        try {
            work(*report);
        } catch (const std::invalid_argument& error) {
            call.Refuse(http::status::bad_request, error.what());
        } catch (const std::exception& error) {
            call.Refuse(http::status::internal_server_error, error.what());
        }
    });
}

void TWebApi::GiveGrid(const TCall& call)
{
    const auto session = SessionOf(call);
    if (!session)
        return call.Refuse(http::status::not_found, NoSession);
    session->Ask([call](const TApplication* application) { GiveGridOf(application, call); });
}

void TWebApi::GiveGridOf(const TApplication* application, const TCall& call)
try {
    const auto* form = application ? application->FindFormByName(QueryOf(call.request, "form")) : nullptr;
    const auto* component = form && form->Showing() ? form->FindComponent(QueryOf(call.request, "control")) : nullptr;
    const auto* grid = dynamic_cast<const TGrid*>(component);
    if (!grid)
        return call.Refuse(http::status::not_found, NoGrid);
    const auto format = QueryOf(call.request, "formato");
    const auto name = grid->Name() + "." + format;
    if (format == "csv")
        call.reply(AnswerDownload(call.request, CommaSeparated(*grid), "text/csv; charset=utf-8", name));
    else if (format == "xlsx")
        call.reply(AnswerDownload(call.request, Spreadsheet(*grid), SpreadsheetType, name));
    else
        call.Refuse(http::status::bad_request, Malformed);
} catch (const std::exception& error) {
    call.Refuse(http::status::internal_server_error, error.what());
}

} // namespace alinhavo
