#include "platform/web/TWebSession.h"

#include "forms/TApplication.h"
#include "forms/TDialog.h"
#include "forms/text.h"
#include "forms/TForm.h"
#include "forms/TGrid.h"
#include "platform/session/clock.h"
#include "platform/web/EProtocolError.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>

namespace alinhavo {

namespace {

using json = nlohmann::json;

// A text from a database may hold bytes that are no UTF-8: they are shown as a mark, the message stays well-formed.
std::string Written(const json& message) { return message.dump(-1, ' ', false, json::error_handler_t::replace); }

std::string HourText(TDateTime time) { return time.TextWithHour().substr(11, 5); }

/// The property that shows what a person types in the control; empty where he types nothing.
std::string_view TypedProperty(const TControl& control) { return control.Kind() == "grid" ? "editorText" : "text"; }

} // namespace

TWebSession::TWebSession(std::string id, TSessionUser user, ISessionHost& host, TConectados& connected)
    : id_(std::move(id))
    , user_(std::move(user))
    , host_(host)
    , connected_(connected, id_)
{
    note_.id = id_;
    note_.usuario = user_.code;
    note_.nome = user_.name;
    note_.desde = ClockNow();
    thread_ = std::thread(&TWebSession::Run, this);
}

TWebSession::~TWebSession()
{
    End("");
    Wait();
}

void TWebSession::Wait()
{
    if (thread_.joinable())
        thread_.join();
}

void TWebSession::Run()
{
    std::string failure;
    try {
        Work();
    } catch (const std::exception& error) {
        failure = "A sessão não pôde continuar: " + std::string(error.what());
    }
    Farewell(std::move(failure));
}

void TWebSession::Work()
{
    const auto workplace = host_.Open(user_, *this, *this, connected_);
    struct TAtWork {
        TWebSession& session;
        TAtWork(TWebSession& of, IWorkplace& workplace)
            : session(of)
        {
            session.application_ = &workplace.Application();
            const std::lock_guard lock(session.mutex_);
            session.workplace_ = &workplace;
        }
        ~TAtWork()
        {
            session.NoteState();
            session.application_ = nullptr;
            const std::lock_guard lock(session.mutex_);
            session.workplace_ = nullptr;
        }
    };
    const TAtWork atWork(*this, *workplace);
    application_->Run();
}

// What its user does not see now, or what he loses, he is told when he comes in again.
void TWebSession::Farewell(std::string told)
{
    std::shared_ptr<IClientLink> link;
    TDateTime lost;
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
        link = std::exchange(link_, nullptr);
        lost = note_.pendenteDesde;
        if (told.empty())
            told = endingWhy_;
    }
    if (!told.empty() && !lost.IsBlank())
        told += " O que não foi gravado desde as " + HourText(lost) + " foi desfeito.";
    if (!told.empty() && (!link || !lost.IsBlank()))
        host_.LeaveNotice(user_, HourText(ClockNow()) + ": " + told);
    std::deque<TAsked> asked;
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
        asked.swap(asked_);
    }
    for (const auto& work : asked)
        work(nullptr);
    files_.Delete();
    if (!link)
        return;
    link->Send(Written({{"ended", told}}));
    link->Close();
}

// The connections' side ---------------------------------------------------------------------------------------------------

void TWebSession::Attach(std::shared_ptr<IClientLink> link)
{
    std::shared_ptr<IClientLink> replaced;
    bool ended = false;
    {
        const std::lock_guard lock(mutex_);
        ended = ended_ || ending_;
        if (!ended) {
            lastUse_ = std::chrono::steady_clock::now();
            replaced = std::exchange(link_, link);
            attachedAnew_ = true;
        }
    }
    arrived_.notify_one();
    if (ended) {
        link->Send(Written({{"ended", ""}}));
        link->Close();
    }
    if (replaced) {
        replaced->Send(Written({{"replaced", true}}));
        replaced->Close();
    }
}

void TWebSession::Detach(const IClientLink& link)
{
    const std::lock_guard lock(mutex_);
    if (link_.get() == &link)
        link_ = nullptr;
}

void TWebSession::Receive(IClientLink& from, std::string_view text)
{
    try {
        if (TClientMessage::IsCancel(text))
            return Cancel(from);
        auto message = TClientMessage::Decode(text);
        const std::lock_guard lock(mutex_);
        if (link_.get() != &from)
            return;
        if (attachedAnew_)
            throw EProtocolError("nothing may be sent before the first message was received");
        if (message.number != received_ + 1)
            throw EProtocolError("n: " + std::to_string(received_ + 1) + " is expected");
        if (waiting_.size() >= MaxWaiting)
            throw EProtocolError("too many messages sent ahead");
        received_ = message.number;
        lastUse_ = std::chrono::steady_clock::now();
        waiting_.push_back(std::move(message));
        arrived_.notify_one();
    } catch (const EProtocolError& error) {
        from.Send(Written({{"error", error.what()}}));
    }
}

void TWebSession::End(std::string_view why)
{
    {
        const std::lock_guard lock(mutex_);
        if (!std::exchange(ending_, true))
            endingWhy_ = why;
        if (workplace_)
            workplace_->Cancel();
    }
    arrived_.notify_one();
}

bool TWebSession::Ended() const
{
    const std::lock_guard lock(mutex_);
    return ended_;
}

bool TWebSession::Ending() const
{
    const std::lock_guard lock(mutex_);
    return ending_ || ended_;
}

void TWebSession::Ask(TAsked work)
{
    {
        const std::lock_guard lock(mutex_);
        if (!ended_) {
            asked_.push_back(std::move(work));
            work = nullptr;
        }
    }
    arrived_.notify_one();
    if (work)
        work(nullptr);
}

void TWebSession::Cancel(const IClientLink& from)
{
    const std::lock_guard lock(mutex_);
    if (link_.get() == &from && workplace_)
        workplace_->Cancel();
}

std::chrono::steady_clock::time_point TWebSession::LastUse() const
{
    const std::lock_guard lock(mutex_);
    return lastUse_;
}

TConectado TWebSession::Note() const
{
    const std::lock_guard lock(mutex_);
    auto note = note_;
    const auto idle = std::chrono::steady_clock::now() - lastUse_;
    note.ultimoUso
        = TDateTime::FromSeconds(ClockNow().Seconds() - std::chrono::duration_cast<std::chrono::seconds>(idle).count());
    note.navegadorAberto = link_ != nullptr;
    return note;
}

// The application's side --------------------------------------------------------------------------------------------------

TUserEvent TWebSession::Next()
{
    if (following_) {
        const auto [number, typed, focus] = std::exchange(following_, {}).value();
        handling_.push_back({number});
        return *typed;
    }
    TClientMessage message;
    while (Take(message)) {
        if (CarryOut(message))
            return Begin(std::move(message.event), message.number);
    }
    return {.kind = TUserEvent::TKind::Terminate};
}

// A text that came with its key is two events: the key, and the text unless the key was swallowed or moved the focus.
TUserEvent TWebSession::Begin(TUserEvent event, std::int64_t number)
{
    const bool typed = event.kind == TUserEvent::TKind::Text || event.kind == TUserEvent::TKind::GridText;
    if (!typed || event.key.name.empty()) {
        handling_.push_back({number});
        return event;
    }
    TUserEvent key{.kind = TUserEvent::TKind::Key, .form = event.form, .control = event.control, .key = event.key};
    handling_.push_back({number, std::move(event), FocusNow()});
    return key;
}

bool TWebSession::Take(TClientMessage& message)
{
    NoteTurn();
    std::unique_lock lock(mutex_);
    if (waiting_.empty() && !ending_) {
        lock.unlock();
        Tell();
        lock.lock();
    }
    for (;;) {
        arrived_.wait(lock, [this] { return ending_ || attachedAnew_ || !waiting_.empty() || !asked_.empty(); });
        if (ending_)
            return false;
        if (!waiting_.empty())
            break;
        if (std::exchange(attachedAnew_, false)) {
            lock.unlock();
            TellEverything();
            lock.lock();
            continue;
        }
        const auto work = std::move(asked_.front());
        asked_.pop_front();
        lock.unlock();
        work(application_);
        lock.lock();
    }
    message = std::move(waiting_.front());
    waiting_.pop_front();
    done_ = message.number;
    return true;
}

// True when the message's event is one for the application.
bool TWebSession::CarryOut(TClientMessage& message)
{
    if (message.request == TClientMessage::TRequest::Rows)
        return GiveRows(message), false;
    if (message.request == TClientMessage::TRequest::Order)
        return OrderRows(message), false;
    if (message.turn != turn_) {
        PassOver(message.number);
        return false;
    }
    if (message.dialog != dialogs_.Top()) {
        Refuse(message.number, "Outra pergunta espera uma resposta.");
        return false;
    }
    if (message.event.kind == TUserEvent::TKind::OpenForm && !Offers(message.event.text)) {
        Refuse(message.number, "O menu não oferece a tela " + message.event.text + ".");
        return false;
    }
    if (!TakeFile(message.event)) {
        Refuse(message.number, "Só pode ser escolhido um arquivo que foi enviado nesta sessão.");
        return false;
    }
    NoteEntered(message.event);
    return true;
}

bool TWebSession::TakeFile(TUserEvent& event) const
{
    const auto* dialog = application_->TopDialog();
    const bool named = event.kind == TUserEvent::TKind::Answer && event.answer == TModalResult::Ok && dialog
        && dialog->kind == TDialog::TKind::File;
    if (!named)
        return true;
    const auto file = files_.Brought(event.text);
    event.text = file ? file->string() : std::string();
    return file.has_value();
}

bool TWebSession::Offers(std::string_view screenClass) const
{
    return std::ranges::any_of(
        workplace_->Menu(), [&](const TMenuEntry& entry) { return SameText(entry.screenClass, screenClass); });
}

void TWebSession::PassOver(std::int64_t number)
{
    passed_.push_back(number);
    passedLately_.push_back(number);
    while (passedLately_.front() <= number - static_cast<std::int64_t>(MaxWaiting))
        passedLately_.pop_front();
}

void TWebSession::GiveRows(const TClientMessage& message)
{
    if (message.dialog != 0)
        return dialogs_.SetWindow(message.dialog, message.first, message.count);
    auto* grid = dynamic_cast<TGrid*>(FindControl(message.event));
    if (!grid)
        return Refuse(message.number, "A grade não existe.");
    image_.SetWindow(*grid, message.first, message.count);
    ControlChanged(*grid);
}

// As its user had them the last time: on a screen that is covered, or a page that is hidden, as well.
void TWebSession::OrderRows(const TClientMessage& message)
{
    auto* grid = dynamic_cast<TGrid*>(FindControl(message.event));
    const auto& column = message.event.column;
    if (!grid || !grid->SortsByTitle() || (!column.empty() && !grid->FindColumn(column)))
        return Refuse(message.number, "A grade não pode ser posta nessa ordem.");
    grid->SortRows(column.empty() ? column : grid->FindColumn(column)->field,
        message.event.flag ? TDirection::Descending : TDirection::Ascending);
}

void TWebSession::Handled(const TUserEvent& event, std::string_view refusal)
{
    if (event.kind == TUserEvent::TKind::Terminate || handling_.empty())
        return;
    auto done = std::move(handling_.back());
    handling_.pop_back();
    if (!refusal.empty()) {
        Refuse(done.number, refusal);
        if (auto* control = FindControl(event))
            ControlChanged(*control);
        return;
    }
    if (!done.then || application_->KeySwallowed())
        return;
    if (FocusNow() == done.focus)
        following_ = std::move(done);
}

void TWebSession::Refuse(std::int64_t number, std::string_view why)
{
    refused_.push_back({{"n", number}, {"why", why}});
}

// What its user entered stands in the client's control already.
void TWebSession::NoteEntered(const TUserEvent& event)
{
    const auto* control = FindControl(event);
    if (!control)
        return;
    switch (event.kind) {
    case TUserEvent::TKind::GridText:
        image_.Told(*control, "editing", true);
        [[fallthrough]];
    case TUserEvent::TKind::Text:
        return image_.Told(*control, TypedProperty(*control), event.text);
    case TUserEvent::TKind::Check:
        return image_.Told(*control, "checked", event.flag);
    default:
        return;
    }
}

void TWebSession::NoteTurn()
{
    auto focus = FocusNow();
    const auto* control = FocusedControl();
    const bool otherText = control && focus.dialog == 0 && image_.Differs(*control, TypedProperty(*control));
    if (focus == focus_ && !otherText)
        return;
    focusTold_ = focusTold_ && focus == focus_;
    focus_ = std::move(focus);
    ++turn_;
    if (control)
        ControlChanged(*FocusedControl());
}

TWebSession::TFocus TWebSession::FocusNow() const
{
    TFocus focus;
    focus.dialog = dialogs_.Top();
    const auto* form = application_ ? application_->ActiveForm() : nullptr;
    if (!form)
        return focus;
    focus.form = form->Name();
    const auto* control = form->ActiveControl();
    if (!control)
        return focus;
    focus.control = control->Name();
    if (const auto* grid = dynamic_cast<const TGrid*>(control)) {
        focus.row = grid->CurrentRow();
        focus.column = grid->Column();
    }
    return focus;
}

TControl* TWebSession::FocusedControl() const
{
    const auto* form = application_ ? application_->ActiveForm() : nullptr;
    return form ? form->ActiveControl() : nullptr;
}

TControl* TWebSession::FindControl(const TUserEvent& event) const
{
    if (!application_)
        return nullptr;
    auto* form = event.form.empty() ? application_->ActiveForm() : application_->FindFormByName(event.form);
    if (!form || event.control.empty())
        return form ? form->ActiveControl() : nullptr;
    return dynamic_cast<TControl*>(form->FindComponent(event.control));
}

void TWebSession::FormShown(TForm& form)
{
    application_ = &form.Application();
    if (!image_.Knows(form) && std::ranges::find(shown_, &form) == shown_.end())
        shown_.push_back(&form);
}

void TWebSession::FormClosed(TForm& form)
{
    if (image_.Knows(form))
        closed_.push_back(form.Name());
    image_.Forget(form);
    std::erase(shown_, &form);
    const auto gone = [&form](const TControl* control) { return &control->Form() == &form; };
    std::erase_if(changed_, gone);
    std::erase_if(changedSet_, gone);
}

void TWebSession::ControlChanged(TControl& control)
{
    if (changedSet_.insert(&control).second)
        changed_.push_back(&control);
}

void TWebSession::FocusChanged(TForm&) { }

void TWebSession::DialogOpened(TDialog& dialog) { dialogs_.Open(dialog); }

void TWebSession::DialogChanged(TDialog&) { dialogs_.Changed(); }

void TWebSession::DialogClosed(TDialog& dialog) { dialogs_.Close(dialog); }

// Told at once: the handlers go on and the thread does not come back to its messages for a while.
void TWebSession::BusyChanged(bool busy) { Send({{"busy", busy}}); }

// Telling -----------------------------------------------------------------------------------------------------------------

void TWebSession::TellEverything()
{
    image_.Clear();
    dialogs_.Forget();
    closed_.clear();
    shown_.clear();
    for (auto* form : application_->Forms()) {
        if (form->Showing())
            shown_.push_back(form);
    }
    passed_ = passedLately_;
    focusTold_ = false;
    doneTold_ = -1;
    Tell();
}

// What others may know of the session, whatever its thread is at.
void TWebSession::NoteState()
{
    std::vector<std::string> screens;
    for (const auto* form : application_->Forms()) {
        if (form->Showing())
            screens.push_back(form->PlainCaption());
    }
    const std::lock_guard lock(mutex_);
    note_.telas = std::move(screens);
    note_.pendenteDesde = workplace_ ? workplace_->PendingSince() : TDateTime();
}

void TWebSession::Tell()
{
    NoteState();
    {
        const std::lock_guard lock(mutex_);
        if (!link_ || attachedAnew_)
            return;
    }
    json message = json::object();
    if (doneTold_ < 0)
        TellBeginning(message);
    TellStatus(message);
    TellScreens(message);
    dialogs_.Tell(message);
    auto files = image_.Files();
    std::ranges::copy(dialogs_.Files(), std::back_inserter(files));
    files_.Show(files);
    TellFocus(message);
    if (!refused_.empty())
        message["refused"] = std::exchange(refused_, json::array());
    if (!passed_.empty())
        message["passed"] = std::exchange(passed_, json::array());
    if (message.empty() && done_ == doneTold_)
        return;
    message["done"] = done_;
    message["turn"] = turn_;
    doneTold_ = done_;
    Send(message);
}

void TWebSession::TellBeginning(json& message)
{
    auto menu = json::array();
    for (const auto& entry : workplace_->Menu())
        menu.push_back({{"group", entry.group}, {"caption", entry.caption}, {"class", entry.screenClass}});
    message["session"] = id_;
    message["title"] = application_->Title;
    message["user"] = {{"code", user_.code}, {"name", user_.name}};
    message["menu"] = std::move(menu);
    pendingTold_.reset();
}

// Seconds are told, so that the client's clock may be another.
void TWebSession::TellStatus(json& message)
{
    const auto since = note_.pendenteDesde;
    if (pendingTold_ == since)
        return;
    pendingTold_ = since;
    auto& pending = message["status"]["pending"];
    if (!since.IsBlank())
        pending = std::max<std::int64_t>(0, ClockNow().Seconds() - since.Seconds());
}

void TWebSession::TellScreens(json& message)
{
    auto shown = json::array();
    for (auto* form : std::exchange(shown_, {}))
        shown.push_back(image_.Whole(*form));
    auto changed = json::array();
    for (const auto* control : std::exchange(changed_, {}))
        image_.AddChanges(changed, *control);
    changedSet_.clear();
    if (!closed_.empty())
        message["closed"] = std::exchange(closed_, {});
    if (!shown.empty())
        message["shown"] = std::move(shown);
    if (!changed.empty())
        message["changed"] = std::move(changed);
}

void TWebSession::TellFocus(json& message)
{
    if (focusTold_)
        return;
    message["focus"] = {{"form", focus_.form}, {"control", focus_.control}};
    if (!focus_.column.empty())
        message["focus"].update({{"row", focus_.row}, {"column", focus_.column}});
    focusTold_ = true;
}

void TWebSession::Send(const json& message)
{
    std::shared_ptr<IClientLink> link;
    {
        const std::lock_guard lock(mutex_);
        link = link_;
    }
    if (link)
        link->Send(Written(message));
}

} // namespace alinhavo
