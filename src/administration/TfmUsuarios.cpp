#include "administration/TfmUsuarios.h"

#include "administration/TfmDefineSenha.h"
#include "administration/TfmTrocaSenha.h"
#include "forms/text.h"
#include "host/WriteWhole.h"

#include <array>
#include <stdexcept>

namespace alinhavo {
namespace {

constexpr std::string_view Modulo = "USUARIOS";

std::string_view Marca(bool ligado) { return ligado ? "S" : "N"; }

std::string_view SimOuNao(std::string_view marca) { return marca == "S" ? "Sim" : "Não"; }

/// Adds "nome A -> B" when they differ.
void Anota(std::string& mudancas, std::string_view nome, std::string_view antes, std::string_view depois)
{
    if (antes == depois)
        return;
    mudancas.append(mudancas.empty() ? "" : "; ").append(nome).append(" ");
    mudancas.append(antes.empty() ? "(vazio)" : antes).append(" -> ").append(depois.empty() ? "(vazio)" : depois);
}

void Enumera(std::string& lista, std::string_view item) { lista.append(lista.empty() ? "" : ", ").append(item); }

} // namespace

TfmUsuarios::TfmUsuarios(TApplication& application)
    : TOrvForm(application, Class, "Usuários e permissões")
{
    QryUsuarios.AfterScroll.connect(this, &TfmUsuarios::QryUsuariosAfterScroll);
    btnIncluir.OnClick.connect(this, &TfmUsuarios::btnIncluirClick);
    btnAlterar.OnClick.connect(this, &TfmUsuarios::btnAlterarClick);
    btnExcluir.OnClick.connect(this, &TfmUsuarios::btnExcluirClick);
    btnSenha.OnClick.connect(this, &TfmUsuarios::btnSenhaClick);
    btnLog.OnClick.connect(this, &TfmUsuarios::btnLogClick);
    btnFechar.OnClick.connect(this, &TfmUsuarios::btnFecharClick);
    btnConfirmar.OnClick.connect(this, &TfmUsuarios::btnConfirmarClick);
    btnDesistir.OnClick.connect(this, &TfmUsuarios::btnDesistirClick);
    edtProcura.OnChange.connect(this, &TfmUsuarios::edtProcuraChange);
    dbgUsuarios.OnDoubleClick.connect(this, &TfmUsuarios::btnAlterarClick);
    edtFuncionario.OnExit.connect(this, &TfmUsuarios::edtFuncionarioExit);
    btnCopiar.OnClick.connect(this, &TfmUsuarios::btnCopiarClick);
    edtProcuraTela.OnChange.connect(this, &TfmUsuarios::edtProcuraTelaChange);
    itMarcaLinha.OnClick.connect(this, &TfmUsuarios::itMarcaLinhaClick);
    itDesmarcaLinha.OnClick.connect(this, &TfmUsuarios::itDesmarcaLinhaClick);
    itMarcaColuna.OnClick.connect(this, &TfmUsuarios::itMarcaColunaClick);
    itDesmarcaColuna.OnClick.connect(this, &TfmUsuarios::itDesmarcaColunaClick);
    dbgDireitos.SetPopupMenu(&mnuDireitos);
    dbgDireitos.OnCellEdit.connect(this, &TfmUsuarios::dbgDireitosCellEdit);
    PqFuncionario.Serve(edtFuncionario);
    PqFuncionario.OnFechaPesquisa.connect(this, &TfmUsuarios::PqFuncionarioFechaPesquisa);
    PqCopia.OnFechaPesquisa.connect(this, &TfmUsuarios::PqCopiaFechaPesquisa);
    PqCopia.Select = TStatement("SELECT CODIGO, NOME FROM {ACESSO_USUARIOS}");

    dbgDireitos.SetColumn(TbDireitos.Consulta.Name());
    TbDireitos.CanInsert = false;
    TbSetores.CanInsert = false;
    LiberaEdicao(false);
    CarregaUsuarios({});
    dbgUsuarios.SetFocus();
}

// What is on screen -------------------------------------------------------------------------------------------------------

std::string TfmUsuarios::Codigo() const
{
    return QryUsuarios.IsEmpty() ? "" : QryUsuarios.FieldByName("CODIGO").AsString();
}

std::string TfmUsuarios::Nome() const
{
    return QryUsuarios.IsEmpty() ? "" : QryUsuarios.FieldByName("NOME").AsString();
}

bool TfmUsuarios::Proprio(const std::string& codigo) const { return codigo == Funcoes().vUsuarioCodigo(); }

/// With the cursor on that user, where he is found.
void TfmUsuarios::CarregaUsuarios(const std::string& codigo)
{
    {
        const auto quieto = QryUsuarios.DisableControls();
        QryUsuarios.SQL = TStatement(R"(
            SELECT U.CODIGO, U.NOME, U.TIPO, U.SUPERVISOR, U.BLOQUEADO, U.CODFUN, P.NOME AS FUNCIONARIO,
                   CASE WHEN COALESCE(U.SENHA, '') = '' THEN 'S' ELSE 'N' END AS SEM_SENHA
              FROM {ACESSO_USUARIOS} U LEFT JOIN {PESSOAL} P ON P.CODIGO = U.CODFUN
             ORDER BY U.NOME)");
        QryUsuarios.Open();
        if (!codigo.empty())
            QryUsuarios.Locate("CODIGO", {codigo});
    }
    MostraUsuario();
}

void TfmUsuarios::edtProcuraChange()
{
    const auto procurado = UpperCase(Trim(edtProcura.text()));
    if (procurado.empty())
        return QryUsuarios.ClearFilter();
    QryUsuarios.SetFilter([this, procurado] {
        for (const auto* campo : {"CODIGO", "NOME", "FUNCIONARIO"})
            if (UpperCase(QryUsuarios.FieldByName(campo).AsString()).find(procurado) != std::string::npos)
                return true;
        return false;
    });
    MostraUsuario();
}

void TfmUsuarios::QryUsuariosAfterScroll() { MostraUsuario(); }

void TfmUsuarios::MostraUsuario()
{
    const bool ha = QryUsuarios.Active() && !QryUsuarios.IsEmpty();
    const auto texto
        = [&](std::string_view campo) { return ha ? QryUsuarios.FieldByName(campo).AsString() : std::string(); };
    for (TButton* botao : std::to_array<TButton*>({&btnAlterar, &btnExcluir, &btnSenha}))
        botao->SetEnabled(ha);
    edtCodigo.SetText(texto("CODIGO"));
    edtNome.SetText(texto("NOME"));
    const auto tipo = texto("TIPO");
    cbTipo.SetItemIndex(tipo.empty() ? -1 : cbTipo.IndexOfPrefix(tipo + " |"));
    if (cbTipo.ItemIndex() < 0)
        cbTipo.SetText(tipo);
    edtFuncionario.SetText(texto("CODFUN"));
    edtNomeFuncionario.SetText(texto("FUNCIONARIO"));
    chkSupervisor.SetChecked(texto("SUPERVISOR") == "S");
    chkBloqueado.SetChecked(texto("BLOQUEADO") == "S");
    CarregaDireitos(Codigo());
    CarregaSetores(edtFuncionario.text());
}

/// Headings of the menu are named beside their screens; nothing asks for a right on them.
void TfmUsuarios::CarregaDireitos(const std::string& codigo)
{
    TOrvQuery menu = Consulta(R"(
        SELECT M.NIVEL, M.DESCRICAO, COALESCE(M.NOME_FORM, '') AS TELA, A.CONSULTA, A.ALTERA, A.EXCLUI
          FROM {ACESSO_MENU} M LEFT JOIN {ACESSO} A ON A.LOCAL = M.NIVEL AND A.USUARIO = ?
         ORDER BY M.NIVEL)",
        codigo);
    const auto quieto = TbDireitos.DisableControls();
    TbDireitos.ClearFilter();
    TbDireitos.EmptyTable();
    std::string titulo;
    menu.ForEach([&] {
        const auto texto = [&](std::string_view campo) { return menu.FieldByName(campo).AsString(); };
        const auto marca = [&](std::string_view campo) { return Marca(texto(campo) == "Sim"); };
        if (texto("TELA").empty()) {
            titulo = texto("DESCRICAO");
            return;
        }
        TbDireitos.Append();
        TbDireitos.Nivel = texto("NIVEL");
        TbDireitos.Menu = titulo;
        TbDireitos.Tela = texto("DESCRICAO");
        TbDireitos.NomeForm = texto("TELA");
        TbDireitos.Consulta = marca("CONSULTA");
        TbDireitos.Altera = marca("ALTERA");
        TbDireitos.Exclui = marca("EXCLUI");
        TbDireitos.ConsultaAntes = marca("CONSULTA");
        TbDireitos.AlteraAntes = marca("ALTERA");
        TbDireitos.ExcluiAntes = marca("EXCLUI");
        TbDireitos.Post();
    });
    edtProcuraTelaChange();
    TbDireitos.First();
}

/// What is ticked becomes that of the other user; what is stored stays the own, so that only the difference is written.
void TfmUsuarios::CopiaDireitos(const std::string& codigo)
{
    edtProcuraTela.Clear();
    TbDireitos.CheckBrowse();
    TOrvQuery outro = Consulta("SELECT LOCAL, CONSULTA, ALTERA, EXCLUI FROM {ACESSO} WHERE USUARIO = ?", codigo);
    TbDireitos.ForEach([&] {
        const bool tem = outro.Locate("LOCAL", {TbDireitos.Nivel.value()});
        const auto marca
            = [&](std::string_view campo) { return Marca(tem && outro.FieldByName(campo).AsString() == "Sim"); };
        TbDireitos.Edit();
        TbDireitos.Consulta = marca("CONSULTA");
        TbDireitos.Altera = marca("ALTERA");
        TbDireitos.Exclui = marca("EXCLUI");
    });
}

/// They belong to the employee: users of one employee share them.
void TfmUsuarios::CarregaSetores(const std::string& funcionario)
{
    const auto quieto = TbSetores.DisableControls();
    TbSetores.EmptyTable();
    lblSetores.SetCaption(funcionario.empty()
            ? "Os setores são do funcionário: um usuário sem funcionário movimenta todos."
            : "Setores que o funcionário " + funcionario + " movimenta. Sem nenhum marcado, ele movimenta todos.");
    if (funcionario.empty())
        return;
    TOrvQuery setores = Consulta(R"(
        SELECT C.CODIGO, C.DESCRICAO, CASE WHEN S.SETOR IS NULL THEN 'N' ELSE 'S' END AS PERMITIDO
          FROM {CADFLUXO} C
          LEFT JOIN {ACESSO_SETOR} S ON S.SETOR = C.CODIGO AND S.TIPO = 'F' AND S.CODIGO = ?
         ORDER BY C.CODIGO)",
        funcionario);
    setores.ForEach([&] {
        TbSetores.Append();
        TbSetores.Permitido = setores.FieldByName("PERMITIDO").AsString();
        TbSetores.Setor = setores.FieldByName("CODIGO").AsString();
        TbSetores.Descricao = setores.FieldByName("DESCRICAO").AsString();
        TbSetores.Antes = setores.FieldByName("PERMITIDO").AsString();
        TbSetores.Post();
    });
    TbSetores.First();
}

std::string TfmUsuarios::NomeDoFuncionario() const
{
    return Funcoes().Busca_Valor("PESSOAL", "CODIGO", "NOME", Aspas(edtFuncionario.text())).AsString();
}

void TfmUsuarios::LiberaEdicao(bool livre)
{
    edtCodigo.SetReadOnly(modo_ != TModo::Inclusao);
    for (TControl* controle : std::to_array<TControl*>(
             {&edtNome, &cbTipo, &edtFuncionario, &chkSupervisor, &chkBloqueado, &dbgDireitos, &dbgSetores}))
        controle->SetReadOnly(!livre);
    btnCopiar.SetEnabled(livre);
    for (TMenuItem* item :
        std::to_array<TMenuItem*>({&itMarcaLinha, &itDesmarcaLinha, &itMarcaColuna, &itDesmarcaColuna}))
        item->SetEnabled(livre);
}

void TfmUsuarios::Abre(TModo modo, TControl& primeiro)
{
    modo_ = modo;
    pnlControle.SetVisible(false);
    pnlConfirma.SetVisible(true);
    LiberaEdicao(true);
    if (!primeiro.EffectivelyVisible())
        pgUsuario.SetActivePage(tabDados);
    primeiro.SetFocus();
    edtProcura.SetEnabled(false);
    dbgUsuarios.SetEnabled(false);
}

void TfmUsuarios::Fecha()
{
    modo_ = TModo::Repouso;
    TbDireitos.Cancel();
    TbSetores.Cancel();
    edtProcura.SetEnabled(true);
    dbgUsuarios.SetEnabled(true);
    dbgUsuarios.SetFocus();
    LiberaEdicao(false);
    pnlConfirma.SetVisible(false);
    pnlControle.SetVisible(true);
}

// The buttons at rest -----------------------------------------------------------------------------------------------------

/// A new user may change his own password, and nothing else until he is given more.
void TfmUsuarios::btnIncluirClick()
{
    if (!Acessa(TDireito::Altera))
        return;
    Abre(TModo::Inclusao, edtCodigo);
    for (TEdit* campo : std::to_array<TEdit*>({&edtCodigo, &edtNome, &edtFuncionario, &edtNomeFuncionario}))
        campo->Clear();
    cbTipo.SetItemIndex(0);
    chkSupervisor.SetChecked(false);
    chkBloqueado.SetChecked(false);
    edtProcuraTela.Clear();
    CarregaDireitos({});
    CarregaSetores({});
    TbDireitos.ForEach([&] {
        if (!SameText(TbDireitos.NomeForm.value(), TfmTrocaSenha::Class))
            return;
        TbDireitos.Edit();
        TbDireitos.Consulta = "S";
    });
}

/// What others changed meanwhile is read first.
void TfmUsuarios::btnAlterarClick()
{
    if (!Acessa(TDireito::Altera))
        return;
    CarregaUsuarios(Codigo());
    if (!QryUsuarios.IsEmpty())
        Abre(TModo::Alteracao, pgUsuario.ActivePage() == &tabDireitos ? static_cast<TControl&>(dbgDireitos) : edtNome);
}

/// Whoever has left his name in the log goes only after his deletion was asked for twice: to be blocked is the better end.
void TfmUsuarios::btnExcluirClick()
{
    const auto codigo = Codigo();
    const auto nome = Nome();
    if (!Acessa(TDireito::Exclui))
        return;
    if (Proprio(codigo))
        return Mensagem("Você não pode excluir a si mesmo.");
    if (!FicaUmSupervisor(codigo, false))
        return;
    const auto linhas = ConsultaValor("SELECT COUNT(*) FROM {GERALOG} WHERE USUARIO = ?", nome).AsInteger();
    if (linhas > 0) {
        const auto resposta = PerguntaCancelar("O usuário " + nome + " tem histórico: " + std::to_string(linhas)
            + (linhas == 1 ? " linha" : " linhas") + " no registro de alterações.\nBloquear em vez de excluir?");
        if (resposta == TModalResult::Yes)
            return Bloqueia(codigo);
        if (resposta != TModalResult::No)
            return;
    }
    if (Pergunta("Excluir o usuário " + nome + " e as suas permissões?"))
        Exclui(codigo);
}

void TfmUsuarios::btnSenhaClick()
{
    if (!Acessa(TDireito::Altera) || !Acessa(TDireito::Altera, TNivel::Supervisor))
        return;
    auto* tela = dynamic_cast<TfmDefineSenha*>(Carrega_Form(TfmDefineSenha::Class));
    if (!tela)
        return;
    const auto codigo = Codigo();
    tela->DefineUsuario(codigo, Nome());
    tela->ShowModal();
    CarregaUsuarios(codigo);
}

void TfmUsuarios::btnLogClick() { Funcoes().AcessaLog(*this, Modulo, Codigo()); }

void TfmUsuarios::btnFecharClick() { Close(); }

// The buttons in edit -----------------------------------------------------------------------------------------------------

void TfmUsuarios::btnConfirmarClick()
{
    edtProcuraTela.Clear();
    TbDireitos.CheckBrowse();
    TbSetores.CheckBrowse();
    if (!PodeConfirmar())
        return;
    const auto codigo = edtCodigo.text();
    WriteWhole(Database(), [&] {
        GravaUsuario();
        GravaDireitos(codigo);
        GravaSetores(codigo);
    });
    Fecha();
    CarregaUsuarios(codigo);
}

void TfmUsuarios::btnDesistirClick()
{
    Fecha();
    MostraUsuario();
}

void TfmUsuarios::edtFuncionarioExit()
{
    if (edtFuncionario.ReadOnly() || FocusGoesTo(btnDesistir))
        return;
    edtNomeFuncionario.SetText(NomeDoFuncionario());
    if (!edtFuncionario.empty() && edtNomeFuncionario.empty())
        return Recusa("Funcionário não encontrado.", edtFuncionario);
    CarregaSetores(edtFuncionario.text());
}

void TfmUsuarios::PqFuncionarioFechaPesquisa()
{
    if (edtFuncionario.ReadOnly())
        return;
    edtFuncionario.SetText(PqFuncionario.RetornoPesquisa("CODIGO").AsString());
    edtNomeFuncionario.SetText(PqFuncionario.RetornoPesquisa("NOME").AsString());
}

void TfmUsuarios::btnCopiarClick()
{
    PqCopia.Filtro = TStatement("CODIGO <> ?", edtCodigo.text());
    PqCopia.AbrePesquisa();
    dbgDireitos.SetFocus();
}

/// Only the grid is narrowed: whatever is checked or written is so with all screens.
void TfmUsuarios::edtProcuraTelaChange()
{
    const auto procurada = UpperCase(Trim(edtProcuraTela.text()));
    if (procurada.empty())
        return TbDireitos.ClearFilter();
    TbDireitos.SetFilter([this, procurada] {
        return UpperCase(TbDireitos.Tela.value()).find(procurada) != std::string::npos
            || UpperCase(TbDireitos.Menu.value()).find(procurada) != std::string::npos;
    });
}

void TfmUsuarios::PqCopiaFechaPesquisa() { CopiaDireitos(PqCopia.RetornoPesquisa("CODIGO").AsString()); }

/// Who changes or deletes on a screen has to be able to open it.
void TfmUsuarios::dbgDireitosCellEdit()
{
    if (TbDireitos.Altera.value() == "S" || TbDireitos.Exclui.value() == "S") {
        if (dbgDireitos.Column() != TbDireitos.Consulta.Name())
            TbDireitos.Consulta = "S";
    }
}

void TfmUsuarios::itMarcaLinhaClick() { MarcaLinha("S"); }
void TfmUsuarios::itDesmarcaLinhaClick() { MarcaLinha("N"); }
void TfmUsuarios::itMarcaColunaClick() { MarcaColuna("S"); }
void TfmUsuarios::itDesmarcaColunaClick() { MarcaColuna("N"); }

void TfmUsuarios::MarcaLinha(std::string_view marca)
{
    if (TbDireitos.IsEmpty())
        return;
    TbDireitos.Edit();
    TbDireitos.Consulta = marca;
    TbDireitos.Altera = marca;
    TbDireitos.Exclui = marca;
    TbDireitos.Post();
}

void TfmUsuarios::MarcaColuna(std::string_view marca)
{
    TField* coluna = TbDireitos.FindField(dbgDireitos.Column());
    if (coluna != &TbDireitos.Consulta && coluna != &TbDireitos.Altera && coluna != &TbDireitos.Exclui)
        return Mensagem("Vá primeiro à coluna que quer marcar.");
    TbDireitos.CheckBrowse();
    TbDireitos.ForEach([&] {
        TbDireitos.Edit();
        coluna->Set(marca);
        if (marca == "S")
            TbDireitos.Consulta = "S";
    });
}

// Checks ------------------------------------------------------------------------------------------------------------------

// One check after the other: the first refusal is the one that the user sees.
bool TfmUsuarios::PodeConfirmar()
{
    const bool supervisorAtivo = chkSupervisor.Checked() && !chkBloqueado.Checked();
    return PodeSerUsuario() && PodeMudarASiMesmo() && FicaUmSupervisor(edtCodigo.text(), supervisorAtivo)
        && SupervisorAutoriza();
}

/// A user comes in by name or by code, so that neither may be what another comes in by.
bool TfmUsuarios::PodeSerUsuario()
{
    const auto& codigo = edtCodigo.text();
    if (Trim(codigo).empty())
        return Recusa("Informe o código do usuário.", edtCodigo), false;
    if (modo_ == TModo::Inclusao && Existe("ACESSO_USUARIOS", "CODIGO", Aspas(codigo)))
        return Recusa("Código já cadastrado.", edtCodigo), false;
    if (Trim(edtNome.text()).empty())
        return Recusa("Informe o nome do usuário.", edtNome), false;
    const auto outros = ConsultaValor(R"(
        SELECT COUNT(*) FROM {ACESSO_USUARIOS}
         WHERE CODIGO <> ? AND (UPPER(NOME) IN (?, ?) OR UPPER(CODIGO) IN (?, ?)))",
        codigo, UpperCase(edtNome.text()), UpperCase(codigo), UpperCase(edtNome.text()), UpperCase(codigo));
    if (outros.AsInteger() > 0)
        return Recusa("Outro usuário já entra com esse nome ou código.", edtNome), false;
    if (cbTipo.text().empty())
        return Recusa("Informe o tipo do usuário.", cbTipo), false;
    if (!edtFuncionario.empty() && NomeDoFuncionario().empty())
        return Recusa("Funcionário não encontrado.", edtFuncionario), false;
    return true;
}

bool TfmUsuarios::PodeMudarASiMesmo()
{
    if (!Proprio(edtCodigo.text()))
        return true;
    if (chkBloqueado.Checked())
        return Recusa("Você não pode bloquear a si mesmo.", chkBloqueado), false;
    if (!FicaComAcesso())
        return Recusa("Você não pode tirar de si mesmo a permissão de alterar usuários.", dbgDireitos), false;
    return true;
}

/// Some entry of the menu still opens this screen and lets change in it.
bool TfmUsuarios::FicaComAcesso()
{
    bool consulta = false;
    bool altera = false;
    TbDireitos.ForEach([&] {
        if (!SameText(TbDireitos.NomeForm.value(), Class))
            return;
        consulta = consulta || TbDireitos.Consulta.value() == "S";
        altera = altera || TbDireitos.Altera.value() == "S";
    });
    return consulta && altera;
}

/// `continua`: the user is an active supervisor afterwards.
bool TfmUsuarios::FicaUmSupervisor(const std::string& codigo, bool continua)
{
    if (continua || modo_ == TModo::Inclusao)
        return true;
    const auto ativos = ConsultaValor(R"(
        SELECT COUNT(*) FROM {ACESSO_USUARIOS}
         WHERE SUPERVISOR = 'S' AND COALESCE(BLOQUEADO, 'N') <> 'S' AND CODIGO <> ?)",
        codigo);
    if (ativos.AsInteger() > 0)
        return true;
    return Mensagem("É o último supervisor ativo. Indique outro antes."), false;
}

/// A supervisor is made, or ceases to be one, by a supervisor's word.
bool TfmUsuarios::SupervisorAutoriza()
{
    const bool antes = modo_ == TModo::Alteracao && QryUsuarios.FieldByName("SUPERVISOR").AsString() == "S";
    return antes == chkSupervisor.Checked() || Acessa(TDireito::Altera, TNivel::Supervisor);
}

// Writing -----------------------------------------------------------------------------------------------------------------

void TfmUsuarios::Registra(const std::string& texto, TOperacaoLog operacao, const std::string& codigo)
{
    GeraLog(Modulo, texto, operacao, codigo);
}

void TfmUsuarios::GravaUsuario()
{
    const auto& codigo = edtCodigo.text();
    const auto tipo = Left(cbTipo.text(), 1);
    const auto supervisor = Marca(chkSupervisor.Checked());
    const auto bloqueado = Marca(chkBloqueado.Checked());
    const TValue funcionario = edtFuncionario.empty() ? TValue() : TValue(edtFuncionario.text());
    if (modo_ == TModo::Inclusao) {
        Executa(R"(INSERT INTO {ACESSO_USUARIOS} (CODIGO, NOME, TIPO, SUPERVISOR, BLOQUEADO, CODFUN)
                   VALUES (?, ?, ?, ?, ?, ?))",
            codigo, edtNome.text(), tipo, supervisor, bloqueado, funcionario);
        return Registra("Inclusão do usuário " + codigo + ": nome " + edtNome.text() + "; tipo " + tipo
                + "; supervisor " + std::string(SimOuNao(supervisor)) + "; bloqueado "
                + std::string(SimOuNao(bloqueado)) + "; funcionário "
                + (edtFuncionario.empty() ? "(vazio)" : edtFuncionario.text()),
            TOperacaoLog::Inclusao, codigo);
    }
    const auto antes = [&](std::string_view campo) { return QryUsuarios.FieldByName(campo).AsString(); };
    std::string mudancas;
    Anota(mudancas, "nome", antes("NOME"), edtNome.text());
    Anota(mudancas, "tipo", antes("TIPO"), tipo);
    Anota(mudancas, "supervisor", SimOuNao(antes("SUPERVISOR")), SimOuNao(supervisor));
    Anota(mudancas, "bloqueado", SimOuNao(antes("BLOQUEADO")), SimOuNao(bloqueado));
    Anota(mudancas, "funcionário", antes("CODFUN"), edtFuncionario.text());
    if (mudancas.empty())
        return;
    if (Executa(R"(UPDATE {ACESSO_USUARIOS}
                      SET NOME = ?, TIPO = ?, SUPERVISOR = ?, BLOQUEADO = ?, CODFUN = ? WHERE CODIGO = ?)",
            edtNome.text(), tipo, supervisor, bloqueado, funcionario, codigo)
        == 0)
        throw std::runtime_error("O usuário " + codigo + " foi excluído por outra pessoa.");
    Registra("Alteração do usuário " + codigo + ": " + mudancas, TOperacaoLog::Alteracao, codigo);
}

void TfmUsuarios::GravaDireitos(const std::string& codigo)
{
    TbDireitos.ForEach([&] {
        std::string mudancas;
        Anota(mudancas, "consulta", SimOuNao(TbDireitos.ConsultaAntes.value()), SimOuNao(TbDireitos.Consulta.value()));
        Anota(mudancas, "altera", SimOuNao(TbDireitos.AlteraAntes.value()), SimOuNao(TbDireitos.Altera.value()));
        Anota(mudancas, "exclui", SimOuNao(TbDireitos.ExcluiAntes.value()), SimOuNao(TbDireitos.Exclui.value()));
        if (mudancas.empty())
            return;
        GravaDireito(codigo);
        Registra("Permissão do usuário " + codigo + " em " + TbDireitos.Tela.value() + ": " + mudancas,
            TOperacaoLog::Alteracao, codigo);
    });
}

void TfmUsuarios::GravaDireito(const std::string& codigo)
{
    const auto nivel = TbDireitos.Nivel.value();
    const auto consulta = SimOuNao(TbDireitos.Consulta.value());
    const auto altera = SimOuNao(TbDireitos.Altera.value());
    const auto exclui = SimOuNao(TbDireitos.Exclui.value());
    if (Executa("UPDATE {ACESSO} SET CONSULTA = ?, ALTERA = ?, EXCLUI = ? WHERE USUARIO = ? AND LOCAL = ?", consulta,
            altera, exclui, codigo, nivel)
        == 0)
        Executa("INSERT INTO {ACESSO} (USUARIO, LOCAL, CONSULTA, ALTERA, EXCLUI) VALUES (?, ?, ?, ?, ?)", codigo, nivel,
            consulta, altera, exclui);
}

void TfmUsuarios::GravaSetores(const std::string& codigo)
{
    const auto& funcionario = edtFuncionario.text();
    std::string permitidos;
    std::string retirados;
    TbSetores.ForEach([&] {
        const auto setor = TbSetores.Setor.value();
        if (TbSetores.Permitido.value() == TbSetores.Antes.value())
            return;
        if (TbSetores.Permitido.value() == "S") {
            Executa("INSERT INTO {ACESSO_SETOR} (TIPO, CODIGO, SETOR) VALUES ('F', ?, ?)", funcionario, setor);
            Enumera(permitidos, setor);
        } else {
            Executa("DELETE FROM {ACESSO_SETOR} WHERE TIPO = 'F' AND CODIGO = ? AND SETOR = ?", funcionario, setor);
            Enumera(retirados, setor);
        }
    });
    if (permitidos.empty() && retirados.empty())
        return;
    std::string texto = "Setores do funcionário " + funcionario + ":";
    if (!permitidos.empty())
        texto += " permitidos " + permitidos + (retirados.empty() ? "" : ";");
    if (!retirados.empty())
        texto += " retirados " + retirados;
    Registra(texto, TOperacaoLog::Alteracao, codigo);
}

void TfmUsuarios::Bloqueia(const std::string& codigo)
{
    WriteWhole(Database(), [&] {
        Executa("UPDATE {ACESSO_USUARIOS} SET BLOQUEADO = 'S' WHERE CODIGO = ?", codigo);
        Registra("Alteração do usuário " + codigo + ": bloqueado em vez de excluído", TOperacaoLog::Alteracao, codigo);
    });
    CarregaUsuarios(codigo);
}

/// The sectors are the employee's and stay; what the user wrote keeps his name.
void TfmUsuarios::Exclui(const std::string& codigo)
{
    const auto nome = Nome();
    WriteWhole(Database(), [&] {
        Executa("DELETE FROM {ACESSO} WHERE USUARIO = ?", codigo);
        Executa("DELETE FROM {PREFERENCIA} WHERE USUARIO = ?", codigo);
        Executa("DELETE FROM {ACESSO_USUARIOS} WHERE CODIGO = ?", codigo);
        Registra("Exclusão do usuário " + codigo + ": nome " + nome, TOperacaoLog::Exclusao, codigo);
    });
    CarregaUsuarios({});
}

} // namespace alinhavo
