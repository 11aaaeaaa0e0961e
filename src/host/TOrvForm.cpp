#include "host/TOrvForm.h"

#include "forms/TEdit.h"

namespace alinhavo {

TOrvForm::TOrvForm(TApplication& application, std::string className, std::string caption)
    : TForm(application, std::move(className), std::move(caption))
    , app_(dynamic_cast<TOrvApplication&>(application))
{
}

TOrvQuery TOrvForm::Consulta(const TStatement& statement) { return TOrvQuery(Database(), statement); }

TValue TOrvForm::ConsultaValor(const TStatement& statement)
{
    const auto rows = Database().Open(statement);
    return rows.RowCount() == 0 ? TValue() : rows.Column(0).Value(0);
}

std::int64_t TOrvForm::Executa(const TStatement& statement) { return Database().ExecSQL(statement); }

TOrvForm::TOcupado::TOcupado(TApplication& application)
    : application_(application)
{
    application_.SetBusy(true);
}

TOrvForm::TOcupado::~TOcupado() { application_.SetBusy(false); }

void TOrvForm::ConfirmaLimparCampo(std::string_view label, TEdit& edit)
{
    if (Pergunta("Deseja limpar o campo " + std::string(label) + "?"))
        edit.SetText("");
}

TForm* TOrvForm::Carrega_Form(std::string_view screenClass)
{
    return Instalada(screenClass) ? &app_.LoadForm(screenClass) : nullptr;
}

bool TOrvForm::Executa_Form(std::string_view screenClass)
{
    ModalResult = TModalResult::None;
    if (!Instalada(screenClass))
        return false;
    app_.LoadForm(screenClass).ShowModal();
    return ModalResult == TModalResult::Ok;
}

bool TOrvForm::Instalada(std::string_view screenClass)
{
    if (app_.KnowsForm(screenClass))
        return true;
    Mensagem("A tela " + std::string(screenClass) + " não está instalada.");
    return false;
}

bool TOrvForm::TelaCarregada(std::string_view screenClass) const
{
    return app_.FindFormByClass(screenClass) != nullptr;
}

} // namespace alinhavo
