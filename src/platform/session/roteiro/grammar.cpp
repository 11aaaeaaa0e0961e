#include "platform/session/roteiro/grammar.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "platform/session/roteiro/TScanner.h"

#include <algorithm>
#include <map>

namespace alinhavo::roteiro {
namespace {

// Parts that several forms share.

TRowName RowName(TScanner& scanner)
{
    if (scanner.NextIsNumber())
        return scanner.Number("the row", 1);
    return scanner.Matches();
}

std::string Assigned(TScanner& scanner, std::string_view what)
{
    scanner.Expect("=");
    return scanner.Text(what).text;
}

TText AssignedText(TScanner& scanner)
{
    scanner.Expect("=");
    return scanner.Text("the value");
}

std::optional<std::string> Title(TScanner& scanner)
{
    if (!scanner.Take("titulo"))
        return std::nullopt;
    return scanner.Quoted("the title");
}

/// The word, or the name of something else.
std::optional<std::string> NameOr(TScanner& scanner, std::string_view word, std::string_view what)
{
    if (scanner.Take(word))
        return std::nullopt;
    return scanner.Text(what).text;
}

template <typename TChoice>
TChoice Choice(TScanner& scanner, const std::map<std::string_view, TChoice>& choices)
{
    for (const auto& [word, choice] : choices) {
        if (scanner.Take(word))
            return choice;
    }
    std::string words;
    for (const auto& [word, choice] : choices)
        words.append(words.empty() ? "" : ", ").append(word);
    scanner.Fail("one of these is missing: " + words);
}

const std::map<std::string_view, TState> controlStates{
    {"habilitado", TState::Enabled},
    {"desabilitado", TState::Disabled},
    {"visivel", TState::Visible},
    {"invisivel", TState::Invisible},
    {"foco", TState::Focused},
    {"marcado", TState::Checked},
    {"desmarcado", TState::Unchecked},
};
const std::map<std::string_view, TState> columnStates{
    {"somenteleitura", TState::ReadOnly},
    {"editavel", TState::Editable},
    {"visivel", TState::Visible},
    {"invisivel", TState::Invisible},
};
const std::map<std::string_view, TState> menuStates{
    {"habilitado", TState::Enabled},
    {"desabilitado", TState::Disabled},
    {"visivel", TState::Visible},
    {"invisivel", TState::Invisible},
};
const std::map<std::string_view, TAnswer> answers{
    {"Sim", TAnswer::Yes},
    {"Não", TAnswer::No},
    {"Cancelar", TAnswer::Cancel},
    {"OK", TAnswer::Ok},
    {"Enter", TAnswer::Enter},
    {"Esc", TAnswer::Esc},
};

// The world around the application.

TStep Banco(TScanner& scanner)
{
    return TDatabase{Choice<TFactory>(scanner, {{"vazio", TFactory::Empty}, {"demo", TFactory::Demonstration}})};
}

TStep Parametro(TScanner& scanner)
{
    const auto name = scanner.Name("the parameter");
    const auto digits = std::min(name.find_first_of("0123456789"), name.size());
    const auto number = ParseInteger(std::string_view(name).substr(digits));
    if (digits == 0 || !number || *number > 999'999)
        scanner.Fail("a parameter is a group and a number, as FAC20: " + name);
    return TParameter{name.substr(0, digits), static_cast<int>(*number), Assigned(scanner, "the value")};
}

TStep Ajuste(TScanner& scanner)
{
    auto name = scanner.Name("the setting");
    return TSetting{std::move(name), Assigned(scanner, "the value")};
}

TStep Sql(TScanner& scanner)
{
    if (scanner.AtEnd())
        scanner.Fail("the statement is missing");
    return TSql{scanner.Rest()};
}

TReading Reading(TScanner& scanner)
{
    const auto text = scanner.Text("CODE:quantity").text;
    const auto colon = text.rfind(':');
    const auto quantity = colon == std::string::npos ? std::nullopt : ParseFloat(text.substr(colon + 1));
    if (colon == 0 || !quantity)
        scanner.Fail("a reading is CODE:quantity: " + text);
    return {text.substr(0, colon), *quantity};
}

TStep Rfid(TScanner& scanner)
{
    TRfid rfid{scanner.Name("the batch"), {}, {}};
    if (scanner.Take("falha")) {
        rfid.failure = scanner.Quoted("the failure's text");
        return rfid;
    }
    scanner.Expect("=");
    while (!scanner.AtEnd())
        rfid.readings.push_back(Reading(scanner));
    return rfid;
}

TStep Hoje(TScanner& scanner)
{
    auto text = scanner.Text("the date").text;
    const bool withHour = !scanner.AtEnd();
    text += " " + (withHour ? scanner.Text("the hour").text : "12:00");
    const auto now = TDateTime::Parse(text);
    if (now.IsBlank())
        scanner.Fail("this is no date: " + text);
    return TToday{now};
}

TStep Usuario(TScanner& scanner) { return TUser{scanner.Text("the user").text}; }
TStep Sessao(TScanner& scanner) { return TSwitchSession{scanner.Name("the session")}; }

TStep Falha(TScanner& scanner)
{
    TPlannedFailure failure{scanner.Number("the number of statements", 1), {}, {}};
    if (scanner.Take("em"))
        failure.prefix = scanner.Quoted("the statement's beginning");
    failure.text = scanner.Quoted("the failure's text");
    return failure;
}

// What a person does.

TStep Abre(TScanner& scanner) { return TOpen{scanner.Name("the screen")}; }
TStep Fecha(TScanner& scanner) { return TClose{scanner.Name("the screen")}; }
TStep Em(TScanner& scanner) { return TActivate{scanner.Name("the screen")}; }
TStep Clica(TScanner& scanner) { return TClick{scanner.Name("the control")}; }
TStep Passa(TScanner& scanner) { return TPass{scanner.Name("the control")}; }
TStep Marca(TScanner& scanner) { return TCheck{scanner.Name("the control"), true}; }
TStep Desmarca(TScanner& scanner) { return TCheck{scanner.Name("the control"), false}; }

TStep Digita(TScanner& scanner)
{
    auto control = scanner.Name("the control");
    return TFill{std::move(control), scanner.Text("the text").text};
}

TStep Escreve(TScanner& scanner)
{
    auto control = scanner.Name("the control");
    return TWrite{std::move(control), scanner.Text("the text").text};
}

TStep Escolhe(TScanner& scanner)
{
    auto control = scanner.Name("the control");
    return TChoose{std::move(control), scanner.Text("the item").text};
}

TStep Aba(TScanner& scanner)
{
    auto control = scanner.Name("the control");
    return TTurn{std::move(control), scanner.Text("the page").text};
}

TStep Tecla(TScanner& scanner)
{
    auto control = scanner.Name("the control");
    return TPress{std::move(control), scanner.Text("the key").text};
}

TStep Celula(TScanner& scanner)
{
    auto grid = scanner.Name("the grid");
    auto row = RowName(scanner);
    auto column = scanner.Name("the column");
    return TFillCell{std::move(grid), std::move(row), std::move(column), scanner.Text("the value").text};
}

TStep Linha(TScanner& scanner)
{
    auto grid = scanner.Name("the grid");
    return TGoToRow{std::move(grid), RowName(scanner)};
}

TStep Duplo(TScanner& scanner)
{
    auto grid = scanner.Name("the grid");
    return TDoubleClick{std::move(grid), RowName(scanner)};
}

std::string OnColumn(TScanner& scanner) { return scanner.Take("coluna") ? scanner.Name("the column") : std::string(); }

TStep Menu(TScanner& scanner)
{
    auto control = scanner.Name("the control");
    auto column = OnColumn(scanner);
    return TMenu{std::move(control), std::move(column), scanner.Text("the item").text};
}

TStep Cola(TScanner& scanner)
{
    TPaste paste{scanner.Name("the grid"), {}};
    do
        paste.rows.push_back(scanner.Text("the row").text);
    while (!scanner.AtEnd());
    return paste;
}

TStep Titulo(TScanner& scanner)
{
    auto grid = scanner.Name("the grid");
    return TTitleClick{std::move(grid), scanner.Name("the column")};
}

// What must be so.

TStep ConfereSoma(TScanner& scanner)
{
    auto grid = scanner.Name("the grid");
    auto column = scanner.Name("the column");
    return TExpectSum{std::move(grid), std::move(column), AssignedText(scanner)};
}

TStep ConfereCelula(TScanner& scanner)
{
    auto grid = scanner.Name("the grid");
    auto row = RowName(scanner);
    auto column = scanner.Name("the column");
    return TExpectCell{std::move(grid), std::move(row), std::move(column), AssignedText(scanner)};
}

TStep ConfereMenu(TScanner& scanner)
{
    auto control = scanner.Name("the control");
    auto column = OnColumn(scanner);
    auto item = scanner.Text("the item").text;
    return TExpectMenu{std::move(control), std::move(column), std::move(item), Choice(scanner, menuStates)};
}

TStep ConfereSql(TScanner& scanner)
{
    TExpectSql expect{{}, scanner.Take("pendente"), {}};
    expect.statement = scanner.Quoted("the statement");
    scanner.Expect("=");
    do
        expect.values.push_back(scanner.Text("the value"));
    while (!scanner.AtEnd());
    return expect;
}

TStep ConfereLog(TScanner& scanner)
{
    const bool last = scanner.Take("ultimo");
    auto module = scanner.Quoted("the module");
    if (!last && scanner.Take("linhas")) {
        scanner.Expect("=");
        return TExpectLogRows{std::move(module), scanner.Number("the number of lines", 0)};
    }
    return TExpectLog{std::move(module), scanner.Quoted("the text"), last};
}

TStep ConfereRelatorio(TScanner& scanner)
{
    if (scanner.Take("nenhum"))
        return TExpectReport{};
    if (scanner.Take("contem"))
        return TExpectReportText{scanner.Quoted("the text")};
    auto layout = scanner.Text("the report").text;
    if (layout.empty())
        scanner.Fail("the report's name is empty");
    return TExpectReport{std::move(layout)};
}

TStep Verifica(TScanner&) { return TExpectSound{}; }

TStep ConfereItens(TScanner& scanner, std::string control)
{
    TExpectItems expect{std::move(control), {}};
    scanner.Expect("=");
    while (!scanner.AtEnd())
        expect.items.push_back(scanner.Text("the item").text);
    return expect;
}

TStep ConfereControle(TScanner& scanner)
{
    auto control = scanner.Name("the control");
    if (scanner.Take("="))
        return TExpectText{std::move(control), scanner.Text("the value")};
    if (scanner.Take("vazia"))
        return TExpectRows{std::move(control), 0};
    if (scanner.Take("linhas")) {
        scanner.Expect("=");
        return TExpectRows{std::move(control), scanner.Number("the number of rows", 0)};
    }
    if (scanner.Take("itens"))
        return ConfereItens(scanner, std::move(control));
    if (scanner.Take("coluna")) {
        auto column = scanner.Name("the column");
        return TExpectColumn{std::move(control), std::move(column), Choice(scanner, columnStates)};
    }
    return TExpectState{std::move(control), Choice(scanner, controlStates)};
}

using TForm = TStep (*)(TScanner&);

TStep Confere(TScanner& scanner)
{
    static const std::map<std::string_view, TForm> forms{
        {"soma", ConfereSoma},
        {"celula", ConfereCelula},
        {"menu", ConfereMenu},
        {"sql", ConfereSql},
        {"log", ConfereLog},
        {"relatorio", ConfereRelatorio},
    };
    for (const auto& [word, form] : forms) {
        if (scanner.Take(word))
            return form(scanner);
    }
    return ConfereControle(scanner);
}

// The dialogs that an action raises.

TStep Mensagem(TScanner& scanner)
{
    auto text = scanner.Quoted("the text");
    return TMessage{std::move(text), Title(scanner)};
}

/// The title may stand before or behind the answer.
TStep Pergunta(TScanner& scanner)
{
    auto text = scanner.Quoted("the text");
    auto title = Title(scanner);
    const auto answer = Choice(scanner, answers);
    if (!title)
        title = Title(scanner);
    return TQuestion{std::move(text), answer, std::move(title)};
}

TStep Entrada(TScanner& scanner)
{
    auto title = scanner.Quoted("the title");
    auto prompt = scanner.Quoted("the prompt");
    scanner.Expect("=");
    return TInput{std::move(title), std::move(prompt), NameOr(scanner, "cancela", "the value")};
}

TStep Pesquisa(TScanner& scanner)
{
    if (scanner.Take("cancela"))
        return TLookup{TLookup::TKind::Cancel, {}};
    if (scanner.Take("sem"))
        return TLookup{TLookup::TKind::NotOffered, {scanner.Matches()}};
    TLookup lookup{TLookup::TKind::Pick, {}};
    do
        lookup.rows.push_back(scanner.Matches());
    while (!scanner.AtEnd());
    return lookup;
}

TStep Supervisor(TScanner& scanner) { return TSupervisor{NameOr(scanner, "recusa", "the name")}; }
TStep Arquivo(TScanner& scanner) { return TFile{NameOr(scanner, "cancela", "the file")}; }
TStep Modal(TScanner& scanner) { return TModal{scanner.Name("the screen")}; }

const std::map<std::string_view, TForm> forms{
    {"banco", Banco},
    {"parametro", Parametro},
    {"ajuste", Ajuste},
    {"sql", Sql},
    {"rfid", Rfid},
    {"hoje", Hoje},
    {"usuario", Usuario},
    {"sessao", Sessao},
    {"falha", Falha},
    {"abre", Abre},
    {"fecha", Fecha},
    {"em", Em},
    {"clica", Clica},
    {"digita", Digita},
    {"passa", Passa},
    {"escreve", Escreve},
    {"escolhe", Escolhe},
    {"marca", Marca},
    {"desmarca", Desmarca},
    {"aba", Aba},
    {"tecla", Tecla},
    {"celula", Celula},
    {"linha", Linha},
    {"duplo", Duplo},
    {"menu", Menu},
    {"titulo", Titulo},
    {"cola", Cola},
    {"confere", Confere},
    {"verifica", Verifica},
    {"!", Mensagem},
    {"?", Pergunta},
    {">", Entrada},
    {"pesquisa", Pesquisa},
    {"supervisor", Supervisor},
    {"arquivo", Arquivo},
    {"modal", Modal},
};

} // namespace

TStep ParseStep(std::string_view line, const TPlace& place)
{
    TScanner scanner(line, place);
    for (const auto& [verb, form] : forms) {
        if (scanner.Take(verb)) {
            auto step = form(scanner);
            scanner.End();
            return step;
        }
    }
    scanner.Fail("no line of the language begins so: " + std::string(line.substr(0, line.find(' '))));
}

} // namespace alinhavo::roteiro
