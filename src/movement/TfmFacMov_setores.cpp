// The rules of sectors and flows: which sector may be left now, and where its pieces go.

#include "forms/text.h"
#include "movement/TfmFacMov.h"

#include <algorithm>
#include <map>

namespace alinhavo {

namespace {

/// As much of a flow's sequence as two flows are compared by.
constexpr std::size_t ComparedSequence = 4000;

} // namespace

std::string TfmFacMov::LigaSetor(std::string_view setor, std::string_view coluna)
{
    return Busca_Valor("CADFLUXO", "CODIGO", coluna, Aspas(setor)).AsString();
}

std::string TfmFacMov::PrimeiroSetor(std::string_view fluxo)
{
    return ConsultaValor("SELECT SETOR FROM {FLUXO} WHERE CODIGO = ? ORDER BY ORDEM, IDENTIFICADOR", fluxo).AsString();
}

std::string TfmFacMov::UltimoSetor() const
{
    return QryFluxo.IsEmpty() ? "" : QryFluxo.CellText(QryFluxo.RecordCount() - 1, QryFluxo.FieldByName("SETOR"));
}

bool TfmFacMov::UltimoSetorDoFluxo(std::string_view setor) const
{
    return !QryFluxo.IsEmpty() && UltimoSetor() == setor;
}

// A free sector may be fed by whichever sector was reached last.
std::string TfmFacMov::SetorAnterior(std::string_view setor)
{
    if (!SetorLivre(setor))
        return std::string(setor);

    TOrvQuery setores = Consulta(R"(
        SELECT FACCAO.OP, MIN(FACCAO.IDENTIFICADOR) AS PRIMEIRO
          FROM {FACCAO} FACCAO JOIN {CADFLUXO} CADFLUXO ON CADFLUXO.CODIGO = FACCAO.OP
         WHERE FACCAO.NUMERO = ? AND FACCAO.PARTE = ?
         GROUP BY FACCAO.OP
         ORDER BY 2)",
        edtOFNum.text(), Parte());
    if (setores.IsEmpty() || setores.Locate("OP", {setor}))
        return std::string(setor);
    setores.Last();
    return setores.FieldByName("OP").AsString();
}

bool TfmFacMov::MovimentouSetor(std::string_view setor)
{
    return !Consulta(R"(
        SELECT ENTROU.IDENTIFICADOR
          FROM {FACCAO} ENTROU
         WHERE ENTROU.NUMERO = ? AND ENTROU.PARTE = ? AND ENTROU.OP = ?
           AND EXISTS (SELECT 1 FROM {FACCAO} SAIU
                        WHERE SAIU.ID_ANT = ENTROU.IDENTIFICADOR AND SAIU.MOV = ENTROU.MOV))",
        edtOFNum.text(), Parte(), setor)
                .IsEmpty();
}

bool TfmFacMov::MovimentouSetoresLivre()
{
    return !Consulta(R"(
        SELECT FACCAO.IDENTIFICADOR
          FROM {FACCAO} FACCAO
         WHERE FACCAO.NUMERO = ? AND FACCAO.PARTE = ?
           AND EXISTS (SELECT 1 FROM {CADFLUXO} CADFLUXO WHERE CADFLUXO.CODIGO = FACCAO.OP AND CADFLUXO.BAIXALIVRE = 'S')
           AND EXISTS (SELECT 1 FROM {FLUXO} FLUXO WHERE FLUXO.CODIGO = FACCAO.FLUXO AND FLUXO.SETOR = FACCAO.OP))",
        edtOFNum.text(), Parte())
                .IsEmpty();
}

bool TfmFacMov::MovimentouTodosSetoresLivres()
{
    if (Busca_Valor("ROTEIRO", "CODIGO", "BAIXALIVRE", Aspas(edtFluxo.text())).AsString() != "S")
        return true;

    TOrvQuery setores = Consulta(R"(
        SELECT FLUXO.SETOR, CADFLUXO.DESCRICAO
          FROM {FLUXO} FLUXO
          JOIN {CADFLUXO} CADFLUXO ON CADFLUXO.CODIGO = FLUXO.SETOR AND CADFLUXO.BAIXALIVRE = 'S'
         WHERE FLUXO.CODIGO = ? AND FLUXO.SETOR <> ?
           AND FLUXO.ORDEM <= (SELECT MAX(ATUAL.ORDEM) FROM {FLUXO} ATUAL WHERE ATUAL.CODIGO = FLUXO.CODIGO AND ATUAL.SETOR = ?)
           AND NOT EXISTS (SELECT 1 FROM {FACCAO} FACCAO
                            WHERE FACCAO.NUMERO = ? AND FACCAO.PARTE = ? AND FACCAO.OP = FLUXO.SETOR
                              AND FACCAO.QT_ORIG - FACCAO.QUANT - FACCAO.QUANT_2 - FACCAO.QUANT_I - FACCAO.QUANT_F <= 0)
         ORDER BY FLUXO.ORDEM, FLUXO.IDENTIFICADOR)",
        edtFluxo.text(), EdtSetor.text(), EdtSetor.text(), edtOFNum.text(), Parte());
    if (setores.IsEmpty())
        return true;

    std::string text = "Existem ainda os seguintes setores a percorrer:";
    setores.ForEach([&] {
        text += "\n" + setores.FieldByName("SETOR").AsString() + " - " + setores.FieldByName("DESCRICAO").AsString();
    });
    Mensagem(text);
    return false;
}

// In a free flow the next sector is the first free one that was not passed yet, and behind the last of them the flow
// goes on in its order.
std::string TfmFacMov::Pega_Setor_Normal()
{
    struct TLinha {
        std::string setor;
        bool livre;
    };
    std::vector<TLinha> linhas;
    TOrvQuery fluxo = Consulta(R"(
        SELECT FLUXO.SETOR, CADFLUXO.BAIXALIVRE
          FROM {FLUXO} FLUXO LEFT JOIN {CADFLUXO} CADFLUXO ON CADFLUXO.CODIGO = FLUXO.SETOR
         WHERE FLUXO.CODIGO = ? ORDER BY FLUXO.ORDEM, FLUXO.IDENTIFICADOR)",
        edtFluxo.text());
    fluxo.ForEach([&] {
        linhas.push_back({fluxo.FieldByName("SETOR").AsString(), fluxo.FieldByName("BAIXALIVRE").AsString() == "S"});
    });

    const auto atual = std::ranges::find(linhas, EdtSetor.text(), &TLinha::setor);
    if (Busca_Valor("ROTEIRO", "CODIGO", "BAIXALIVRE", Aspas(edtFluxo.text())).AsString() != "S")
        return atual == linhas.end() || atual + 1 == linhas.end() ? "" : (atual + 1)->setor;

    std::string proximo;
    for (const TLinha& linha : linhas) {
        if (linha.livre && linha.setor != EdtSetor.text() && !MovimentouSetor(linha.setor)) {
            proximo = linha.setor;
            break;
        }
    }
    if (proximo.empty()) {
        for (auto linha = linhas.rbegin(); linha != linhas.rend() && !linha->livre; ++linha)
            proximo = linha->setor;
    }
    const bool parado = proximo == EdtSetor.text() && !linhas.empty() && proximo == linhas.back().setor;
    return parado ? "" : proximo;
}

// Flows that are the same up to the sector in which the order stands.
std::vector<std::string> TfmFacMov::FluxosEquivalentes(std::string_view fluxo, std::string_view setor)
{
    if (fluxo.empty())
        return {};
    std::vector<std::string> equivalentes{std::string(fluxo)};
    const TValue limite = ConsultaValor("SELECT MAX(ORDEM) FROM {FLUXO} WHERE CODIGO = ? AND SETOR = ?", fluxo, setor);
    if (limite.IsNull())
        return equivalentes;

    std::map<std::string, std::string> sequencias;
    TOrvQuery linhas = Consulta(R"(
        SELECT FLUXO.CODIGO, FLUXO.SETOR
          FROM {FLUXO} FLUXO JOIN {ROTEIRO} ROTEIRO ON ROTEIRO.CODIGO = FLUXO.CODIGO
         WHERE FLUXO.ORDEM <= ? ORDER BY FLUXO.CODIGO, FLUXO.ORDEM, FLUXO.IDENTIFICADOR)",
        limite);
    linhas.ForEach([&] {
        std::string& sequencia = sequencias[linhas.FieldByName("CODIGO").AsString()];
        sequencia += (sequencia.empty() ? "" : " ") + linhas.FieldByName("SETOR").AsString();
    });
    const std::string procurada = Left(sequencias[std::string(fluxo)], ComparedSequence);
    for (const auto& [codigo, sequencia] : sequencias) {
        if (codigo != fluxo && Left(sequencia, ComparedSequence) == procurada)
            equivalentes.push_back(codigo);
    }
    return equivalentes;
}

bool TfmFacMov::PermissaoSetor(std::string_view setor)
{
    const std::string funcionario
        = Busca_Valor("ACESSO_USUARIOS", "CODIGO", "CODFUN", Aspas(Funcoes().vUsuarioCodigo())).AsString();
    if (funcionario.empty() || !Existe("ACESSO_SETOR", "TIPO,CODIGO", Aspas("F"), Aspas(funcionario)))
        return true;
    return Existe("ACESSO_SETOR", "TIPO,CODIGO,SETOR", Aspas("F"), Aspas(funcionario), Aspas(setor));
}

std::string TfmFacMov::FaccaoFuncionario(std::string_view usuario)
{
    return ConsultaValor(R"(
        SELECT PESSOAL.CODCLI
          FROM ACESSO_USUARIOS JOIN {PESSOAL} PESSOAL ON PESSOAL.CODIGO = ACESSO_USUARIOS.CODFUN
         WHERE ACESSO_USUARIOS.CODIGO = ?)",
        usuario)
        .AsString();
}

bool TfmFacMov::BaixaSetorMaior(std::string_view setor) { return LigaSetor(setor, "BAIXAMAIOR") == "S"; }

bool TfmFacMov::BaixaSetorParcial(std::string_view setor) { return LigaSetor(setor, "BAIXAPARCIAL") != "N"; }

bool TfmFacMov::ExisteQtdePendenteOP(std::string_view numero)
{
    return ConsultaValor("SELECT SUM(QTDE) FROM {OF_ITEN} WHERE NUMERO = ?", numero).AsFloat() > 0;
}

bool TfmFacMov::ExisteQtdePendente(std::string_view numero, std::string_view setor, std::string_view parte,
    std::string_view mov, std::string& reprocesso)
{
    TStatement select(R"(
        SELECT REPROCESSO FROM {FACCAO}
         WHERE NUMERO = ? AND OP = ? AND PARTE = ?
           AND QT_ORIG - QUANT - QUANT_2 - QUANT_I - QUANT_F > 0)",
        numero, setor, parte);
    if (!mov.empty())
        select.Add(" AND MOV = ?", BareNumber(mov));
    select.Add(" ORDER BY IDENTIFICADOR");
    TOrvQuery linhas = Consulta(select);
    reprocesso = linhas.FieldByName("REPROCESSO").AsString();
    return !linhas.IsEmpty();
}

bool TfmFacMov::ValidaParte(std::string_view parte)
{
    return !Consulta(R"(
        SELECT CODIGO FROM {TIPO_APL} WHERE CODIGO = ? AND (ESTOQUE = 'S' OR BAIXA = 'S' OR ATUALIZA = 'S'))",
        parte)
                .IsEmpty();
}

// Leaving the sector. The order of the checks decides which refusal the user reads.
void TfmFacMov::EdtSetorExit()
{
    if (FocusGoesTo(btn00Desiste))
        return Cancela();

    const std::string numero = edtOFNum.text();
    const std::string parte = Parte();

    const std::string faccao = FaccaoFuncionario(Funcoes().vUsuarioCodigo());
    if (!faccao.empty()
        && !Existe("FACCAO", "NUMERO,OP,PARTE,CODCLI", Aspas(numero), Aspas(SetorAnterior(EdtSetor.text())),
            Aspas(parte), Aspas(faccao))) {
        EdtSetor.SetText("");
        return Recusa("Setor não permitido para este usuário.", EdtSetor);
    }

    if (Existe("CADFLUXO", "CODIGO", Aspas(EdtSetor.text()))) {
        TravaCabecalho(true);
    } else if (!EdtSetor.empty()) {
        // The entry goes on after the message and the lookup, whatever was picked there: this is wanted.
        Mensagem("Setor não encontrado.");
        PqFluxo.AbrePesquisa();
    }

    const std::string setor = EdtSetor.text();
    if (!PermissaoSetor(setor)) {
        Mensagem("Sem permissão para movimentar o setor.");
        return Cancela();
    }

    const std::string anterior = SetorAnterior(setor);
    const bool livre = SetorLivre(setor);
    const bool ordemEncerrada = !ExisteQtdePendenteOP(numero) && ValidaParte(parte);
    std::string reprocesso;
    const bool pendente = ExisteQtdePendente(numero, anterior, parte, "", reprocesso);
    EdtReprocesso.SetText(reprocesso);
    const bool movimentada = Existe("FACCAO", "NUMERO,OP,PARTE", Aspas(numero), Aspas(anterior), Aspas(parte));
    if ((!pendente && movimentada && !BaixaSetorMaior(setor) && !livre) || ordemEncerrada) {
        Mensagem("Nada para Movimentar. OF já movimentada na Facção.");
        EdtSetor.SetText("");
        return Cancela();
    }
    if (!pendente && BaixaSetorMaior(setor)
        && Existe("FACCAO", "NUMERO,OP,PARTE", Aspas(numero), Aspas(setor), Aspas(parte)))
        Mensagem("Atenção, baixando quantidade maior no setor.", "Atenção", TIcon::Warning);

    if (Existe("OF1", "NUMERO", Aspas(numero))) {
        Mostra_Normal();
        if (!livre && !MovimentouTodosSetoresLivres())
            return VoltaAoSetor();
        if (ForaDaOrdem(numero, setor, parte)) {
            Mensagem("Movimentando setor fora da ordem do fluxo.");
            return VoltaAoSetor();
        }
        TravaFluxo();
    } else if (!numero.empty()) {
        Mensagem("OF não existe.");
        return Cancela();
    }

    PreencheMovimentos(anterior);
    EscolheProximoSetor();
    BuscaEmpDestPrincipal();
    Proximo_Mov(numero, edtSetorProx.text());

    if (edtFluxo.empty()
        && Consulta(R"(
            SELECT PRO_FLUXO.FLUXO
              FROM {OF1} OF1 JOIN {PRO_FLUXO} PRO_FLUXO ON PRO_FLUXO.CODIGO = OF1.CODIGO
             WHERE OF1.NUMERO = ? AND PRO_FLUXO.PARTE = ?)",
            numero, parte)
               .IsEmpty()) {
        Mensagem("Fluxo não cadastrado para a parte do produto da OF informada.");
        return Cancela();
    }
    LiberaDatas();
}

bool TfmFacMov::ForaDaOrdem(std::string_view numero, std::string_view setor, std::string_view parte)
{
    const bool presa
        = !MovimentouSetoresLivre() || (LigaSetor(setor, "BAIXALIVRE") == "N" && MovimentouTodosSetoresLivres());
    return presa && !edtFluxo.empty() && !Existe("FACCAO", "NUMERO,OP,PARTE", Aspas(numero), Aspas(setor), Aspas(parte))
        && Existe("FACCAO", "NUMERO,PARTE", Aspas(numero), Aspas(parte));
}

void TfmFacMov::VoltaAoSetor()
{
    TravaCabecalho(false);
    EdtSetor.SetFocus();
}

// The flow may still change while the order stands where another flow has the same way behind it.
void TfmFacMov::TravaFluxo()
{
    const std::string numero = edtOFNum.text();
    const std::string parte = Parte();
    bool aberto = false;
    if (edtFluxo.empty()
        || !Existe("FACCAO", "NUMERO,CODIGO,PARTE,OP", Aspas(numero), Aspas(edtCodproduto.text()), Aspas(parte),
            Aspas(Pega_Setor_Normal()))) {
        const std::vector<std::string> fluxos = FluxosEquivalentes(edtFluxo.text(), EdtSetor.text());
        aberto = !fluxos.empty();
        if (aberto) {
            std::string lista;
            for (const std::string& fluxo : fluxos)
                lista += Aspas(fluxo) + ",";
            pqRFluxo.Filtro = TStatement("CODIGO IN (?)", TLiteralList(lista + Aspas("#*")));
        }
    }
    if (!Existe("FACCAO", "NUMERO,FLUXO,PARTE", Aspas(numero), Aspas(edtFluxo.text()), Aspas(parte))) {
        edtDtEntrada.SetEnabled(sParamFAC140 != "S");
        aberto = true;
    }
    edtFluxo.SetEnabled(aberto);
    edtSetorProx.SetEnabled(true);
}

void TfmFacMov::PreencheMovimentos(std::string_view anterior)
{
    cbMovimento.ClearItems();
    cbMovimento.SetText("");
    TOrvQuery movimentos
        = Consulta("SELECT DISTINCT MOV FROM {FACCAO} WHERE NUMERO = ? AND OP = ? AND MOV IS NOT NULL ORDER BY MOV",
            edtOFNum.text(), anterior);
    movimentos.ForEach([&] { cbMovimento.AddItem(movimentos.FieldByName("MOV").AsString()); });
}

void TfmFacMov::EscolheProximoSetor()
{
    edtSetorProx.SetText("");
    edtSetorProx.SetEnabled(true);
    if (!EdtReprocesso.empty()) {
        edtSetorProx.SetText(EdtReprocesso.text());
        return edtSetorProx.SetFocus();
    }
    edtSetorProx.SetText(Pega_Setor_Normal());
    if (!edtSetorProx.empty() && MovimentouSetoresLivre()
        && (SetorLivre(EdtSetor.text()) || MovimentouTodosSetoresLivres()))
        return edtSetorProx.SetFocus();
    edtSetorProx.SetEnabled(false);
    cbMovimento.SetFocus();
}

// Finished goods are dated by the day on which they are read.
void TfmFacMov::LiberaDatas()
{
    const bool hoje = UltimoSetorDoFluxo(EdtSetor.text()) && sParamFAC240 != "N"
        && Busca_Valor("TIPO_APL", "CODIGO", "ESTOQUE", Aspas(Parte())).AsString() == "S";
    if (hoje) {
        edtDtProducao.SetDate(Application().Today());
        EdtRetorno.SetDate(Application().Today());
    }
    edtDtProducao.SetEnabled(!hoje);
    EdtRetorno.SetEnabled(!hoje);
    if (!hoje)
        AtualizaPrevRetorno();
}

} // namespace alinhavo
