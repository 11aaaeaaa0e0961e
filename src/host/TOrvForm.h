#pragma once

#include "forms/TForm.h"
#include "host/TOrvApplication.h"
#include "host/TOrvQuery.h"

#include <string>
#include <string_view>
#include <utility>

namespace alinhavo {

class TEdit;

/// A screen of the module: a form with the host's services at hand.
class TOrvForm : public TForm {
public:
    TOrvForm(TApplication& application, std::string className, std::string caption);

    TOrvApplication& App() const { return app_; }
    TFuncoes& Funcoes() const { return app_.Host.funcoes; }
    TContabil& Contabil() const { return app_.Host.contabil; }
    TTabela& Tabela() const { return app_.Host.tabela; }
    TOrvDatabase& Database() const { return app_.Host.database; }

    // The calls that every screen makes, under their own names.
    bool Existe(std::string_view table, std::string_view columns, const auto&... values)
    {
        return Funcoes().Existe(table, columns, values...);
    }
    TValue Busca_Valor(std::string_view table, std::string_view keys, std::string_view column, const auto&... values)
    {
        return Funcoes().Busca_Valor(table, keys, column, values...);
    }
    std::string BuscaParametro(std::string_view group, int number) { return Funcoes().BuscaParametro(group, number); }
    bool Acessa(TDireito right, TNivel level = TNivel::Usuario)
    {
        return Funcoes().Acessa(*this, ClassName(), right, level);
    }
    void GeraLog(std::string_view module, std::string_view text, TOperacaoLog operation, std::string_view key)
    {
        Funcoes().GeraLog(module, text, operation, key);
    }
    void CommitRetaining() { Database().CommitRetaining(); }
    void RollbackRetaining() { Database().RollbackRetaining(); }

    /// The rows of a SELECT, at once.
    TOrvQuery Consulta(TFragment fragment, auto&&... arguments)
    {
        return Consulta(TStatement(fragment, std::forward<decltype(arguments)>(arguments)...));
    }
    TOrvQuery Consulta(const TStatement& statement);
    /// First column of the first row; null when there is none.
    TValue ConsultaValor(TFragment fragment, auto&&... arguments)
    {
        return ConsultaValor(TStatement(fragment, std::forward<decltype(arguments)>(arguments)...));
    }
    TValue ConsultaValor(const TStatement& statement);
    /// Rows touched.
    std::int64_t Executa(TFragment fragment, auto&&... arguments)
    {
        return Executa(TStatement(fragment, std::forward<decltype(arguments)>(arguments)...));
    }
    std::int64_t Executa(const TStatement& statement);

    /// Busy while this lives.
    class TOcupado {
    public:
        explicit TOcupado(TApplication& application);
        ~TOcupado();
        TOcupado(const TOcupado&) = delete;
        TOcupado& operator=(const TOcupado&) = delete;

    private:
        TApplication& application_;
    };
    [[nodiscard]] TOcupado Ocupado() { return TOcupado(app_); }

    /// Asks whether to clear a filter field, and clears it on yes.
    void ConfirmaLimparCampo(std::string_view label, TEdit& edit);

    /// Loads a screen by class name. Modal: runs it and returns when it is closed and gone; true when it reported success
    /// by setting this screen's ModalResult to Ok. Not modal: it is made and stays. When no such screen is registered the
    /// user is told so, and the result is null / false.
    TForm* Carrega_Form(std::string_view screenClass);
    bool Executa_Form(std::string_view screenClass);
    bool TelaCarregada(std::string_view screenClass) const;

private:
    bool Instalada(std::string_view screenClass); ///< false when the user was told that it is not

    TOrvApplication& app_;
};

} // namespace alinhavo
