#include "bench/carga/TLoadClerk.h"

#include <algorithm>
#include <cctype>
#include <thread>
#include <utility>

namespace alinhavo {

using json = nlohmann::json;

namespace {

constexpr const char* Screen = "TfmFacMov";
constexpr const char* Form = "fmFacMov";
constexpr const char* Grid = "dbg00Grade";
constexpr int PageOfConsultation = 0;
constexpr int PageOfMovement = 1;
constexpr int PageOfReversal = 2;

json Event(const char* name, const std::string& control)
{
    json event;
    event["event"] = name;
    event["form"] = Form;
    event["control"] = control;
    return event;
}

/// "1.234,00" as it shows.
double Number(const std::string& shown)
{
    std::string digits;
    for (const char c : shown) {
        if (c == ',')
            break;
        if (std::isdigit(static_cast<unsigned char>(c)))
            digits += c;
    }
    return digits.empty() ? 0 : std::stod(digits);
}

/// The text without what differs from one to the other.
std::string Kind(std::string text)
{
    text = text.substr(0, text.find('\n'));
    std::ranges::replace_if(
        text, [](unsigned char c) { return std::isdigit(c); }, '#');
    return text;
}

/// An alarm comes again until its OK is pressed.
json ButtonFor(const json& dialog)
{
    const auto& buttons = dialog["buttons"];
    const bool offersOk = std::ranges::find(buttons, json("ok")) != buttons.end();
    return offersOk ? json("ok") : dialog["escape"];
}

bool IsAskedAlways(const std::string& text)
{
    return text.find("não está lançada na Facção") != std::string::npos
        || text.find("Deseja realmente estornar") != std::string::npos;
}

bool IsFailure(const std::string& text) { return text.find("Registro em uso") != std::string::npos; }

} // namespace

void TLoadCounts::Count(const std::string& what)
{
    const std::lock_guard lock(mutex_);
    ++counts_[what];
}

std::map<std::string, int> TLoadCounts::All() const
{
    const std::lock_guard lock(mutex_);
    return counts_;
}

TLoadClerk::TLoadClerk(
    TLogIn logIn, TLoadPlan& plan, std::size_t number, std::size_t clerks, TLedger& ledger, TLoadCounts& counts)
    : logIn_(std::move(logIn))
    , client_(logIn_())
    , plan_(plan)
    , number_(number)
    , clerks_(clerks)
    , ledger_(ledger)
    , counts_(counts)
    , random_(static_cast<unsigned>(number) + 1)
{
}

void TLoadClerk::Work()
{
    std::this_thread::sleep_for(plan_.warmUp / 2 * number_ / clerks_);
    OpenScreen();
    bool gaveUp = false;
    while (std::chrono::steady_clock::now() < plan_.end) {
        try {
            if (std::exchange(leftPending_, false))
                ComeAnew();
            else if (std::exchange(gaveUp, false))
                GiveUp();
            else
                Job();
        } catch (const TGaveUp&) {
            gaveUp = true; // also when giving up met with a refusal
        }
    }
}

void TLoadClerk::Job()
{
    const auto dice = Below(100);
    if (dice < 55)
        Move(false);
    else if (dice < 75)
        Move(true);
    else if (dice < 85)
        Reverse();
    else
        Consult();
}

const TLot& TLoadClerk::PickLot()
{
    const bool anybodys = static_cast<double>(Below(1000)) < plan_.shared * 1000;
    if (anybodys || plan_.lots.size() < clerks_)
        return plan_.lots[Below(plan_.lots.size())];
    const auto own = plan_.lots.size() / clerks_;
    return plan_.lots[number_ + clerks_ * Below(own)];
}

// Moving ---------------------------------------------------------------------------------------------------------------------

void TLoadClerk::Move(bool reads)
{
    const auto& lot = PickLot();
    if (!EnterHeader(lot))
        throw TGaveUp();
    const auto pieces = reads ? ReadCodes() : TypeQuantities();
    if (pieces <= 0)
        throw TGaveUp();
    Confirm(lot.place, pieces);
}

/// Up to the quantities; false when the screen does not let the clerk.
bool TLoadClerk::EnterHeader(const TLot& lot)
{
    TurnTo(PageOfMovement);
    Click("btn00Incluir");
    Fill("edtOFNum", lot.place.order);
    if (!Choose("CbParte", lot.place.part))
        return false;
    Key("CbParte", "Enter");
    Fill("EdtSetor", lot.place.sector);
    constexpr int Fields = 15;
    for (int field = 0; field < Fields && client_->Focus() != Grid; ++field) {
        if (!Answer())
            return false;
        const auto focus = client_->Focus();
        if (focus == "cbMovimento" && !Choose(focus, lot.batch))
            return false;
        if (focus == "edtFacDest" && client_->Text(focus).empty())
            Fill(focus, "00001");
        else
            Key(focus, "Enter");
    }
    return client_->Focus() == Grid && client_->Property(Grid, "rowCount").get<int>() > 0;
}

/// A few pieces of a few rows.
double TLoadClerk::TypeQuantities()
{
    const auto rows = std::min(client_->Property(Grid, "rowCount").get<int>(), 50);
    std::vector<double> pending;
    for (int row = 0; row < rows; ++row)
        pending.push_back(Number(client_->Cell(Grid, row, "Saldo")));
    auto menu = Event("menu", Grid);
    Do(menu);
    auto item = Event("menuItem", Grid);
    item["item"] = "Zerar Quantidades";
    Do(item);
    double pieces = 0;
    for (int count = 0; count < 3; ++count) {
        const auto row = static_cast<int>(Below(static_cast<std::size_t>(rows)));
        if (pending[static_cast<std::size_t>(row)] < 1)
            continue;
        pending[static_cast<std::size_t>(row)] = 0;
        auto cell = Event("cell", Grid);
        cell["row"] = row;
        cell["column"] = "Quant";
        Think();
        Do(cell);
        auto text = Event("cellText", Grid);
        text["text"] = "1";
        Do(text, TEventKind::Keystroke);
        Key(Grid, "Enter");
        if (!Answer())
            throw TGaveUp();
        pieces += 1;
    }
    return pieces;
}

/// With the scanner: a character every few milliseconds, without waiting for an answer.
double TLoadClerk::ReadCodes()
{
    const auto product = client_->Text("edtCodproduto");
    const auto rows = std::min(client_->Property(Grid, "rowCount").get<int>(), 50);
    std::vector<std::string> codes;
    for (int row = 0; row < rows; ++row) {
        const auto code = plan_.codes.find(
            product + " " + client_->Cell(Grid, row, "Cor") + " " + client_->Cell(Grid, row, "Tam") + " ");
        if (code != plan_.codes.end())
            codes.push_back(code->second);
    }
    if (codes.empty())
        return TypeQuantities();
    auto check = Event("check", "cbBaixaBarras");
    check["checked"] = true;
    if (client_->Property("cbBaixaBarras", "checked") != json(true))
        Do(check);
    double pieces = 0;
    for (int count = 0; count < 5; ++count) {
        Think();
        const auto& code = codes[Below(codes.size())];
        for (std::size_t length = 1; length <= code.size(); ++length) {
            auto text = Event("text", "EdtBarra");
            text["text"] = code.substr(0, length);
            client_->Send(text, length == code.size() ? TEventKind::Step : TEventKind::Keystroke);
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        client_->Await();
        if (Answer())
            pieces += 1;
    }
    auto uncheck = Event("focus", Grid);
    Do(uncheck);
    return pieces;
}

void TLoadClerk::Confirm(const TLeavingPlace& place, double pieces)
{
    Click("btn00Confirmar", TEventKind::Confirmation);
    if (!Answer(TEventKind::Confirmation) || InEntry())
        throw TGaveUp();
    ledger_.Add(place, pieces);
    counts_.Count("movimentos confirmados");
}

void TLoadClerk::GiveUp()
{
    counts_.Count("entradas desistidas");
    Answer();
    TurnTo(PageOfMovement);
    if (InEntry())
        Click("btn00Desiste");
    Answer();
}

// What was written before the failure would go with his next commit.
void TLoadClerk::ComeAnew()
{
    counts_.Count("entradas de novo no sistema");
    client_->LogOut();
    client_ = logIn_();
    OpenScreen();
}

void TLoadClerk::OpenScreen() { client_->Do({{"event", "open"}, {"class", Screen}}, TEventKind::Step); }

bool TLoadClerk::InEntry() const { return client_->Property("pnlConfirma", "visible") == json(true); }

// The other work -------------------------------------------------------------------------------------------------------------

void TLoadClerk::Reverse()
{
    const auto& order = PickLot().place.order;
    const std::unique_lock nobodyElse(plan_.takingBack.at(order), std::try_to_lock);
    if (!nobodyElse)
        return;
    TurnTo(PageOfReversal);
    Fill("edtM02OF", order);
    const auto row = client_->Property("DBGrid3", "row").get<int>();
    if (!Answer() || row < 0)
        return;
    const auto cell = [&](const char* column) { return client_->Cell("DBGrid3", row, column); };
    const TLeavingPlace place{cell("NUMERO"), cell("PARTE"), cell("SETOR")};
    const auto pieces
        = Number(cell("QUANT")) + Number(cell("QUANT_2")) + Number(cell("QUANT_I")) + Number(cell("QUANT_F"));
    Click("BitBtn6");
    const bool asked = client_->HasDialog();
    if (!Answer(TEventKind::Confirmation) || !asked)
        return;
    ledger_.Add(place, -pieces);
    counts_.Count("movimentos estornados");
}

void TLoadClerk::Consult()
{
    TurnTo(PageOfConsultation);
    Fill("edtM01OF", PickLot().place.order);
    Answer();
    Click("BtnAConsultar");
    Answer();
    counts_.Count("consultas");
}

// Hands ----------------------------------------------------------------------------------------------------------------------

void TLoadClerk::Think(double share)
{
    const auto pause = std::chrono::duration<double, std::milli>(plan_.pause) * share;
    std::this_thread::sleep_for(pause * (0.5 + static_cast<double>(Below(1001)) / 1000));
}

// What the screen does not let a clerk do is no failure of the load: he gives the entry up.
void TLoadClerk::Do(json event, TEventKind kind)
{
    try {
        client_->Do(std::move(event), kind);
    } catch (const std::runtime_error& error) {
        counts_.Count(Kind(error.what()));
        throw TGaveUp();
    }
}

void TLoadClerk::Click(const std::string& control, TEventKind kind)
{
    Think();
    Do(Event("click", control), kind);
}

void TLoadClerk::Key(const std::string& control, const std::string& key)
{
    Think();
    auto event = Event("key", control);
    event["key"] = key;
    Do(std::move(event));
}

void TLoadClerk::Fill(const std::string& control, const std::string& text)
{
    Think();
    Do(Event("focus", control));
    for (std::size_t length = 1; length <= text.size(); ++length) {
        Think(0.1);
        auto event = Event("text", control);
        event["text"] = text.substr(0, length);
        Do(std::move(event), TEventKind::Keystroke);
    }
    Key(control, "Enter");
}

/// The item whose code it is; false when there is none.
bool TLoadClerk::Choose(const std::string& combo, const std::string& item)
{
    const auto items = client_->Property(combo, "items").get<std::vector<std::string>>();
    const auto found = std::ranges::find_if(items, [&](const std::string& text) {
        return text.substr(0, std::min(text.find_first_of(" |"), text.size())) == item;
    });
    if (found == items.end())
        return false;
    const auto index = found - items.begin();
    if (client_->Property(combo, "itemIndex") == json(index))
        return true;
    Think();
    auto event = Event("select", combo);
    event["index"] = index;
    Do(std::move(event));
    return true;
}

void TLoadClerk::TurnTo(int page)
{
    if (client_->Property("PageControl2", "activePage") == json(page))
        return;
    Think();
    auto event = Event("page", "PageControl2");
    event["index"] = page;
    Do(std::move(event));
}

bool TLoadClerk::Answer(TEventKind kind)
{
    bool known = true;
    while (client_->HasDialog()) {
        const auto& dialog = client_->Dialog();
        const auto text = dialog.value("text", "");
        const bool yes = IsAskedAlways(text);
        if (!yes) {
            known = false;
            leftPending_ = leftPending_ || IsFailure(text);
            counts_.Count("\"" + Kind(text) + "\"");
        }
        Think();
        json event;
        event["event"] = "answer";
        event["dialog"] = dialog["dialog"];
        event["button"] = yes ? json("yes") : ButtonFor(dialog);
        Do(std::move(event), yes ? kind : TEventKind::Step);
    }
    return known;
}

} // namespace alinhavo
