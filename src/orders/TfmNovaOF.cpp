#include "orders/TfmNovaOF.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "host/WriteWhole.h"

#include <algorithm>

namespace alinhavo {
namespace {

constexpr std::size_t larguraDoNumero = 6;

/// "123" is order 000123.
std::string NumeroCompleto(const std::string& numero)
{
    const bool soDigitos = std::ranges::all_of(numero, [](char c) { return c >= '0' && c <= '9'; });
    return soDigitos && !numero.empty() ? LeftPad(numero, '0', larguraDoNumero) : numero;
}

} // namespace

TfmNovaOF::TfmNovaOF(TApplication& application)
    : TOrvForm(application, Class, "Ordem de Fabricação")
{
    btnIncluir.OnClick.connect(this, &TfmNovaOF::btnIncluirClick);
    btnAlterar.OnClick.connect(this, &TfmNovaOF::btnAlterarClick);
    btnExcluir.OnClick.connect(this, &TfmNovaOF::btnExcluirClick);
    btnLog.OnClick.connect(this, &TfmNovaOF::btnLogClick);
    btnFechar.OnClick.connect(this, &TfmNovaOF::btnFecharClick);
    btnConfirmar.OnClick.connect(this, &TfmNovaOF::btnConfirmarClick);
    btnDesistir.OnClick.connect(this, &TfmNovaOF::btnDesistirClick);
    edtNumero.OnExit.connect(this, &TfmNovaOF::edtNumeroExit);
    edtProduto.OnExit.connect(this, &TfmNovaOF::edtProdutoExit);
    edtCliente.OnExit.connect(this, &TfmNovaOF::edtClienteExit);
    edtPedido.OnExit.connect(this, &TfmNovaOF::edtPedidoExit);
    edtPeriodo.OnExit.connect(this, &TfmNovaOF::edtPeriodoExit);
    edtTipoOP.OnExit.connect(this, &TfmNovaOF::edtTipoOPExit);
    edtTabela.OnExit.connect(this, &TfmNovaOF::edtTabelaExit);
    dbgPartes.OnRowColor.connect(this, &TfmNovaOF::dbgPartesRowColor);
    dbgGrade.OnKeyDown.connect(this, &TfmNovaOF::dbgGradeKeyDown);
    dbgGrade.OnCellEdit.connect(this, &TfmNovaOF::dbgGradeCellEdit);
    dbgGrade.OnPaste.connect(this, &TfmNovaOF::dbgGradePaste);
    TbGrade.BeforePost.connect(this, &TfmNovaOF::TbGradeBeforePost);
    PqOF.Serve(edtNumero);
    PqOF.OnFechaPesquisa.connect(this, &TfmNovaOF::PqOFFechaPesquisa);
    PqProduto.Serve(edtProduto);
    PqProduto.OnFechaPesquisa.connect(this, &TfmNovaOF::PqProdutoFechaPesquisa);
    PqCliente.Serve(edtCliente);
    PqCliente.OnFechaPesquisa.connect(this, &TfmNovaOF::PqClienteFechaPesquisa);
    PqPedido.Serve(edtPedido);
    PqPedido.OnFechaPesquisa.connect(this, &TfmNovaOF::PqPedidoFechaPesquisa);
    PqPeriodo.Serve(edtPeriodo);
    PqPeriodo.OnFechaPesquisa.connect(this, &TfmNovaOF::PqPeriodoFechaPesquisa);
    PqTipoOP.Serve(edtTipoOP);
    PqTipoOP.OnFechaPesquisa.connect(this, &TfmNovaOF::PqTipoOPFechaPesquisa);
    PqTabela.Serve(edtTabela);
    PqTabela.OnFechaPesquisa.connect(this, &TfmNovaOF::PqTabelaFechaPesquisa);
    PqCor.OnFechaPesquisa.connect(this, &TfmNovaOF::PqCorFechaPesquisa);

    MontaColunas();
    Fecha();
}

// Modes

void TfmNovaOF::Abre(TModo modo)
{
    modo_ = modo;
    const bool aberta = modo != TModo::Consulta;
    pnlControle.SetVisible(!aberta);
    pnlConfirma.SetVisible(aberta);
    edtNumero.SetEnabled(modo != TModo::Alteracao);
    for (TControl* campo : std::initializer_list<TControl*>{&edtProduto, &edtCliente, &linhaPedido, &linhaPreco})
        campo->SetEnabled(aberta);
    dbgGrade.SetReadOnly(!aberta);
    TbGrade.CanInsert = aberta;
}

void TfmNovaOF::Fecha()
{
    Abre(TModo::Consulta);
    edtNumero.SetFocus();
}

void TfmNovaOF::Limpa()
{
    for (auto* campo : {&edtProduto, &edtCliente, &edtPedido, &edtPeriodo, &edtProgramacao, &edtTipoOP, &edtTabela})
        campo->Clear();
    edtObs.Clear();
    edtDtInicio.SetDate({});
    edtDtEntrega.SetDate({});
    cbPedido.SetChecked(false);
    numero_.clear();
    lblSituacao.SetCaption("");
    TbPartes.EmptyTable();
    MontaGrade("");
    MostraDescricoes();
}

bool TfmNovaOF::EmProducao() { return Existe("FACCAO", "NUMERO", Aspas(numero_)); }

void TfmNovaOF::btnIncluirClick()
{
    if (!Acessa(TDireito::Altera))
        return;
    Limpa();
    edtNumero.SetText(ProximoNumero());
    edtDtInicio.SetDate(Application().Today());
    Abre(TModo::Inclusao);
    edtProduto.SetFocus();
}

std::string TfmNovaOF::ProximoNumero() { return Funcoes().Proximo("OF1", "NUMERO", larguraDoNumero); }

void TfmNovaOF::btnAlterarClick()
{
    if (!Acessa(TDireito::Altera))
        return;
    if (numero_.empty())
        return Recusa("Informe o número da OF.", edtNumero);
    MostraOF();
    if (EmProducao())
        return Recusa("OF " + numero_ + " já está em produção na Facção. Alteração não permitida.", edtNumero);
    pecasAntes_ = Pecas();
    Abre(TModo::Alteracao);
    edtProduto.SetFocus();
}

void TfmNovaOF::btnExcluirClick()
{
    if (!Acessa(TDireito::Exclui))
        return;
    if (numero_.empty())
        return Recusa("Informe o número da OF.", edtNumero);
    if (EmProducao())
        return Recusa("OF " + numero_ + " já está em produção na Facção. Exclusão não permitida.", edtNumero);
    if (Existe("MAT_RESERVA", "NUMERO", Aspas(numero_)))
        return Recusa("OF " + numero_ + " tem materiais reservados. Exclusão não permitida.", edtNumero);
    if (!Pergunta("Excluir a OF " + numero_ + "?"))
        return;
    WriteWhole(Database(), [&] {
        Registra(
            "EXCLUSAO OF " + numero_ + " PRODUTO " + edtProduto.text() + " PECAS " + Pecas(), TOperacaoLog::Exclusao);
        for (const auto* tabela : {"OF_ITEN", "OF_SETOR", "PCP_MOV", "PCPFTOF", "OF1"})
            Executa("DELETE FROM {?} WHERE NUMERO = ?", TName(tabela), numero_);
    });
    edtNumero.Clear();
    Limpa();
    edtNumero.SetFocus();
}

void TfmNovaOF::btnLogClick() { Funcoes().AcessaLog(*this, "CADASTRO DE OF", numero_); }

void TfmNovaOF::btnFecharClick() { Close(); }

void TfmNovaOF::btnDesistirClick()
{
    TbGrade.Cancel();
    const auto numero = modo_ == TModo::Alteracao ? numero_ : std::string();
    Limpa();
    edtNumero.SetText(numero);
    MostraOF();
    Fecha();
}

// The order on screen

void TfmNovaOF::edtNumeroExit()
{
    if (Desiste() || FocusGoesTo(btnIncluir) || FocusGoesTo(btnFechar))
        return;
    edtNumero.SetText(NumeroCompleto(edtNumero.text()));
    if (modo_ == TModo::Consulta)
        return MostraOF();
    if (Existe("OF1", "NUMERO", Aspas(edtNumero.text())))
        Recusa("OF " + edtNumero.text() + " já existe.", edtNumero);
}

/// The order of the number that is typed; blank when there is none.
void TfmNovaOF::MostraOF()
{
    const std::string numero = edtNumero.text();
    TOrvQuery ordem = Consulta("SELECT * FROM {OF1} WHERE NUMERO = ?", numero);
    if (ordem.IsEmpty()) {
        Limpa();
        return numero.empty() ? void() : Recusa("Número da OF não encontrado.", edtNumero);
    }
    numero_ = numero;
    const auto texto = [&](std::string_view coluna) { return ordem.FieldByName(coluna).AsString(); };
    edtProduto.SetText(texto("CODIGO"));
    edtCliente.SetText(texto("CODCLI"));
    edtPedido.SetText(texto("PEDIDO"));
    edtPeriodo.SetText(texto("PERIODO"));
    edtProgramacao.SetText(texto("PROGRAMACAO"));
    edtTipoOP.SetText(texto("TIPO_OP"));
    edtTabela.SetText(texto("TABELA"));
    edtObs.SetText(texto("OBSERVACAO"));
    edtDtInicio.SetDate(ordem.FieldByName("DT_INICIO").AsDateTime());
    edtDtEntrega.SetDate(ordem.FieldByName("DT_FINAL").AsDateTime());
    cbPedido.SetChecked(false);
    CarregaPartes();
    CarregaGrade();
    MostraDescricoes();
    lblSituacao.SetCaption(EmProducao() ? "Em produção: a grade já não muda aqui." : "Ainda não entrou em produção.");
}

void TfmNovaOF::MostraDescricoes()
{
    Descreve(lblProduto, "PRODUTO", "CODIGO", "DESCRICAO", edtProduto);
    Descreve(lblCliente, "ENTIDADE", "CODCLI", "NOME", edtCliente);
    Descreve(lblPeriodo, "TABPRZ", "PRAZO", "DESCRICAO", edtPeriodo);
    Descreve(lblTipoOP, "TIPO_OP", "CODIGO", "DESCRICAO", edtTipoOP);
    Descreve(lblTabela, "REGIAO", "REGIAO", "DESCRICAO", edtTabela);
}

void TfmNovaOF::Descreve(
    TLabel& label, std::string_view tabela, std::string_view chave, std::string_view coluna, TEdit& edt)
{
    const auto texto = edt.empty() ? std::string() : Busca_Valor(tabela, chave, coluna, Aspas(edt.text())).AsString();
    label.SetCaption(Replace(texto, "&", "&&"));
}

void TfmNovaOF::ConfereCodigo(
    TLabel& label, std::string_view tabela, std::string_view chave, TEdit& edt, std::string_view recusa)
{
    if (modo_ == TModo::Consulta || Desiste())
        return;
    if (!edt.empty() && !Existe(tabela, chave, Aspas(edt.text())))
        return Recusa(recusa, edt);
    Descreve(label, tabela, chave, "DESCRICAO", edt);
}

void TfmNovaOF::edtProdutoExit()
{
    if (modo_ == TModo::Consulta || Desiste() || edtProduto.empty())
        return;
    if (!Existe("PRODUTO", "CODIGO", Aspas(edtProduto.text())))
        return Recusa("Código do produto não encontrado.", edtProduto);
    Descreve(lblProduto, "PRODUTO", "CODIGO", "DESCRICAO", edtProduto);
    MontaGrade(edtProduto.text());
    CarregaPartes();
    if (tamanhos_.empty())
        return Mensagem(
            "O produto " + edtProduto.text() + " não tem tamanhos. Cadastre a faixa de tamanhos do produto.");
    if (TbPartes.IsEmpty())
        return Mensagem("O produto " + edtProduto.text() + " não tem partes. Cadastre em Fluxos do produto.");
    if (const auto pendentes = PartesPendentes(); !pendentes.empty())
        Mensagem("Partes que não podem entrar em produção:" + pendentes);
}

void TfmNovaOF::edtClienteExit()
{
    if (modo_ == TModo::Consulta || Desiste())
        return;
    Descreve(lblCliente, "ENTIDADE", "CODCLI", "NOME", edtCliente);
    if (edtCliente.empty())
        return;
    TOrvQuery cliente = Consulta("SELECT BLOQUEIO, TABELA FROM {ENTIDADE} WHERE CODCLI = ?", edtCliente.text());
    if (cliente.IsEmpty())
        return Recusa("Código não existe.", edtCliente);
    if (cliente.FieldByName("BLOQUEIO").AsString() == "S")
        return Recusa("Cliente Bloqueado.", edtCliente);
}

/// What the sales order says already is not asked again.
void TfmNovaOF::edtPedidoExit()
{
    if (modo_ == TModo::Consulta || Desiste() || edtPedido.empty())
        return;
    TOrvQuery pedido
        = Consulta("SELECT CODCLI, PERIODO, PROGRAMACAO, ENTREGA FROM {PEDIDO} WHERE NUMERO = ?", edtPedido.text());
    if (pedido.IsEmpty())
        return;
    const auto completa = [&](TEdit& edt, std::string_view coluna) {
        if (edt.empty())
            edt.SetText(pedido.FieldByName(coluna).AsString());
    };
    completa(edtCliente, "CODCLI");
    completa(edtPeriodo, "PERIODO");
    completa(edtProgramacao, "PROGRAMACAO");
    if (edtDtEntrega.empty())
        edtDtEntrega.SetDate(pedido.FieldByName("ENTREGA").AsDateTime());
    MostraDescricoes();
}

void TfmNovaOF::edtPeriodoExit()
{
    ConfereCodigo(lblPeriodo, "TABPRZ", "PRAZO", edtPeriodo, "Período não encontrado.");
}

void TfmNovaOF::edtTipoOPExit()
{
    ConfereCodigo(lblTipoOP, "TIPO_OP", "CODIGO", edtTipoOP, "Tipo de OP não encontrado.");
}

void TfmNovaOF::edtTabelaExit()
{
    ConfereCodigo(lblTabela, "REGIAO", "REGIAO", edtTabela, "Tabela de preços não encontrada.");
}

// Parts

void TfmNovaOF::CarregaPartes()
{
    TbPartes.EmptyTable();
    TOrvQuery partes = Consulta(R"(
        SELECT P.PARTE, T.DESCRICAO, P.FLUXO, R.DESCRICAO AS DESC_FLUXO
          FROM {PRO_FLUXO} P
          LEFT JOIN {TIPO_APL} T ON T.CODIGO = P.PARTE
          LEFT JOIN {ROTEIRO} R ON R.CODIGO = P.FLUXO
         WHERE P.CODIGO = ?
         ORDER BY P.PARTE)",
        edtProduto.text());
    partes.ForEach([&] {
        const auto fluxo = partes.FieldByName("FLUXO").AsString();
        const auto setores = Setores(fluxo);
        TbPartes.Append();
        TbPartes.Parte = partes.FieldByName("PARTE").AsString();
        TbPartes.DescParte = partes.FieldByName("DESCRICAO").AsString();
        TbPartes.Fluxo = fluxo;
        TbPartes.DescFluxo = partes.FieldByName("DESC_FLUXO").AsString();
        TbPartes.Setores = setores;
        TbPartes.Pendencia = Pendencia(fluxo, setores);
        TbPartes.Post();
    });
    TbPartes.First();
}

std::string TfmNovaOF::Setores(const std::string& fluxo)
{
    std::string setores;
    TOrvQuery linhas = Consulta("SELECT SETOR, DESCRICAO FROM {FLUXO} WHERE CODIGO = ? ORDER BY ORDEM", fluxo);
    linhas.ForEach([&] {
        setores.append(setores.empty() ? "" : " → ").append(linhas.FieldByName("SETOR").AsString());
        setores.append(" ").append(linhas.FieldByName("DESCRICAO").AsString());
    });
    return setores;
}

std::string TfmNovaOF::Pendencia(const std::string& fluxo, const std::string& setores)
{
    if (fluxo.empty())
        return "Parte sem fluxo.";
    if (!Existe("ROTEIRO", "CODIGO", Aspas(fluxo)))
        return "O fluxo " + fluxo + " não existe.";
    return setores.empty() ? "O fluxo " + fluxo + " não tem setores." : std::string();
}

std::string TfmNovaOF::PartesPendentes()
{
    std::string pendentes;
    TbPartes.ForEach([&] {
        if (!TbPartes.Pendencia.value().empty())
            pendentes
                += "\n" + TbPartes.Parte.value() + " " + TbPartes.DescParte.value() + ": " + TbPartes.Pendencia.value();
    });
    return pendentes;
}

void TfmNovaOF::dbgPartesRowColor(std::size_t row, TRowColor& color)
{
    if (!TbPartes.CellText(row, TbPartes.Pendencia).empty())
        color = TRowColor::Bad;
}

// Lookups

void TfmNovaOF::PqOFFechaPesquisa()
{
    edtNumero.SetText(PqOF.RetornoPesquisa("NUMERO").AsString());
    if (modo_ == TModo::Consulta)
        MostraOF();
}

void TfmNovaOF::PqProdutoFechaPesquisa() { edtProduto.SetText(PqProduto.RetornoPesquisa("CODIGO").AsString()); }

void TfmNovaOF::PqClienteFechaPesquisa() { edtCliente.SetText(PqCliente.RetornoPesquisa("CODCLI").AsString()); }

void TfmNovaOF::PqPedidoFechaPesquisa() { edtPedido.SetText(PqPedido.RetornoPesquisa("NUMERO").AsString()); }

void TfmNovaOF::PqPeriodoFechaPesquisa() { edtPeriodo.SetText(PqPeriodo.RetornoPesquisa("PRAZO").AsString()); }

void TfmNovaOF::PqTipoOPFechaPesquisa() { edtTipoOP.SetText(PqTipoOP.RetornoPesquisa("CODIGO").AsString()); }

void TfmNovaOF::PqTabelaFechaPesquisa() { edtTabela.SetText(PqTabela.RetornoPesquisa("REGIAO").AsString()); }

} // namespace alinhavo
