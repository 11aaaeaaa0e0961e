// The tab "Rastrear": from one position back to where its pieces came from.

#include "forms/text.h"
#include "movement/TfmFacMov.h"

namespace alinhavo {

void TfmFacMov::BitBtn9Click()
{
    for (const TEdit* filtro : {&Edit1, &Edit2, &Edit3}) {
        if (Trim(filtro->text()).empty())
            return Recusa("Todos os filtros são obrigatórios.");
    }

    TbRastrear.EmptyTable();
    TStatement condicao(
        "FACCAO.NUMERO = ? AND FACCAO.OP = ? AND FACCAO.MOV = ?", Edit1.text(), Edit2.text(), BareNumber(Edit3.text()));
    if (!EdtCodCor.empty())
        condicao.Add(" AND FACCAO.COR = ?", EdtCodCor.text());
    if (!EdtCodTam.empty())
        condicao.Add(" AND FACCAO.TAM = ?", EdtCodTam.text());
    AcrescentaPosicoes(condicao);

    // An ancestor shared by several rows comes once for each of them: this is wanted.
    while (TbRastrear.Locate("Tag", {0})) {
        TbRastrear.Edit();
        TbRastrear.Tag = 1;
        TbRastrear.Post();
        if (const std::int64_t anterior = TbRastrear.ID_Ant.value(); anterior > 0)
            AcrescentaPosicoes(TStatement("FACCAO.IDENTIFICADOR = ?", anterior));
    }
    TbRastrear.First();
}

void TfmFacMov::AcrescentaPosicoes(const TStatement& condicao)
{
    TStatement select(R"(
        SELECT FACCAO.CODCLI, FACCAO.MOV, FACCAO.IDENTIFICADOR, FACCAO.ID_ANT, FACCAO.QT_ORIG, ENTIDADE.NOME,
               (SELECT MAX(FLUXO.ORDEM) FROM {FLUXO} FLUXO
                 WHERE FLUXO.CODIGO = FACCAO.FLUXO AND FLUXO.SETOR = FACCAO.OP) AS ORDEM,
               (SELECT MAX(FLUXO.DESCRICAO) FROM {FLUXO} FLUXO
                 WHERE FLUXO.CODIGO = FACCAO.FLUXO AND FLUXO.SETOR = FACCAO.OP) AS DESC_SET,
               FACCAO.COR, FACCAO.TAM, FACCAO.OP
          FROM {FACCAO} FACCAO
          LEFT JOIN {ENTIDADE} ENTIDADE ON ENTIDADE.CODCLI = FACCAO.CODCLI
         WHERE )");
    select.Add(condicao).Add(" ORDER BY FACCAO.IDENTIFICADOR");
    TOrvQuery posicoes = Consulta(select);
    posicoes.ForEach([&] {
        TbRastrear.Append();
        TbRastrear.Ordem.Set(posicoes.FieldByName("ORDEM").Value());
        TbRastrear.Mov.Set(posicoes.FieldByName("MOV").Value());
        TbRastrear.Cliente = posicoes.FieldByName("CODCLI").AsString();
        TbRastrear.Nome = posicoes.FieldByName("NOME").AsString();
        TbRastrear.Setor = posicoes.FieldByName("OP").AsString();
        TbRastrear.DescSetor = posicoes.FieldByName("DESC_SET").AsString();
        TbRastrear.Qtde = posicoes.FieldByName("QT_ORIG").AsFloat();
        TbRastrear.Cor = posicoes.FieldByName("COR").AsString();
        TbRastrear.Tam = posicoes.FieldByName("TAM").AsString();
        TbRastrear.ID = posicoes.FieldByName("IDENTIFICADOR").AsInteger();
        TbRastrear.ID_Ant = posicoes.FieldByName("ID_ANT").AsInteger();
        TbRastrear.Tag = 0;
        TbRastrear.Post();
    });
}

} // namespace alinhavo
