// Rows pasted from a spreadsheet into the list.

#include "forms/text.h"
#include "host/WriteWhole.h"
#include "tables/TfmColagem.h"
#include "tables/TfmTabela.h"
#include "tables/TPasteReader.h"

namespace alinhavo {

void TfmTabela::DBGrid1Paste(const TPastedRows& coladas)
{
    if (!Mantida())
        return Mensagem("Esta tabela é só para consulta.");
    if (!Acessa(TDireito::Altera))
        return;
    const auto ocupado = Ocupado();
    const TPasteReader leitura(Database(), tabela_, coladas);
    if (!leitura.Refusal().empty())
        return Mensagem(leitura.Refusal());
    if (leitura.Rows().empty() && leitura.Problems().empty())
        return Mensagem("Não há linhas para incluir.");
    if (AceitaColagem(leitura))
        IncluiColadas(leitura.Rows());
}

/// Nothing is written unless all rows are right, or the user wants the right ones alone.
bool TfmTabela::AceitaColagem(const TPasteReader& leitura)
{
    const auto certas = leitura.Rows().size();
    if (leitura.Problems().empty())
        return Pergunta("Incluir " + std::to_string(certas) + (certas == 1 ? " linha em " : " linhas em ")
            + std::string(tabela_.caption) + "?");
    TfmColagem tela(Application());
    for (const auto& erro : leitura.Problems()) {
        tela.TbErros.Append();
        tela.TbErros.Linha = erro.row;
        tela.TbErros.Conteudo = erro.text;
        tela.TbErros.Motivo = erro.reason;
        tela.TbErros.Post();
    }
    tela.Resume(certas);
    return tela.ShowModal() == TModalResult::Ok;
}

void TfmTabela::IncluiColadas(const std::vector<TPasteRow>& linhas)
{
    WriteWhole(Database(), [&] {
        for (const auto& linha : linhas)
            IncluiColada(linha);
    });
    Procura();
    Mensagem(std::to_string(linhas.size()) + (linhas.size() == 1 ? " linha incluída." : " linhas incluídas."));
}

void TfmTabela::IncluiColada(const TPasteRow& linha)
{
    TStatement sql("INSERT INTO {?} (", TName(tabela_.name));
    TStatement valores;
    std::string colunas;
    for (const auto& [coluna, valor] : linha.values) {
        sql.Add(valores.IsEmpty() ? TFragment("?") : TFragment(", ?"), TName(coluna->name));
        valores.Add(valores.IsEmpty() ? TFragment("?") : TFragment(", ?"), valor);
        if (!valor.IsEmpty())
            colunas += (colunas.empty() ? " " : ", ") + std::string(coluna->caption) + " " + ShownValue(valor);
    }
    Executa(sql.Add(") VALUES (").Add(valores).Add(")"));
    Registra("INCLUSAO " + UpperCase(tabela_.caption) + ":" + colunas, TOperacaoLog::Inclusao, linha.Values());
}

} // namespace alinhavo
