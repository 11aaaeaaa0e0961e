#include "payment/TPrecos.h"

#include "forms/numbers.h"

namespace alinhavo {

TIndPag IndPag(const TValue& value)
{
    const std::int64_t number = value.AsInteger();
    return number >= 1 && number <= 4 ? static_cast<TIndPag>(number) : TIndPag::Nenhuma;
}

double QuantidadePaga(TIndPag indPag, double quant, double quant2, double quantI)
{
    switch (indPag) {
    case TIndPag::Boas:
        return quant;
    case TIndPag::BoasSegunda:
        return quant + quant2;
    case TIndPag::BoasSegundaIncompletas:
        return quant + quant2 + quantI;
    case TIndPag::BoasIncompletas:
        return quant + quantI;
    case TIndPag::Nenhuma:
        break;
    }
    return 0;
}

double TPrecos::PrecoFaccao(const TChavePreco& chave)
{
    double preco = Preco({R"(
        SELECT TABELA.PRECO FROM {OF1} OF1
          JOIN {TIPO_OP} TIPO_OP ON OF1.TIPO_OP = TIPO_OP.CODIGO
          JOIN {TABELA} TABELA ON OF1.CODIGO = TABELA.CODIGO AND TIPO_OP.TABELA = TABELA.NUMERO
         WHERE OF1.NUMERO = ? AND TABELA.SETOR = ? AND TABELA.PARTE = ?
         ORDER BY TABELA.IDENTIFICADOR)",
        chave.numero, chave.setor, chave.parte});
    if (preco > 0)
        return preco;

    preco = Preco({R"(
        SELECT TABELA.PRECO FROM {TABELA} TABELA
          JOIN {OF1} OF1 ON OF1.CODIGO = TABELA.CODIGO AND OF1.TABELA = TABELA.NUMERO
         WHERE OF1.NUMERO = ? AND TABELA.SETOR = ? AND TABELA.PARTE = ?
         ORDER BY TABELA.IDENTIFICADOR)",
        chave.numero, chave.setor, chave.parte});
    if (preco > 0)
        return preco;

    preco = Preco({R"(
        SELECT TABELA.PRECO FROM {TABELA} TABELA
          JOIN {ENTIDADE} ENTIDADE ON ENTIDADE.TABELA = TABELA.NUMERO
         WHERE ENTIDADE.CODCLI = ? AND TABELA.CODIGO = ? AND TABELA.SETOR = ? AND TABELA.PARTE = ?
         ORDER BY TABELA.IDENTIFICADOR)",
        chave.faccao, chave.codigo, chave.setor, chave.parte});
    if (preco > 0)
        return preco;

    return Preco({R"(
        SELECT TABELA.PRECO FROM {TABELA} TABELA
          JOIN {REGIAO} REGIAO ON REGIAO.REGIAO = TABELA.NUMERO
         WHERE REGIAO.PADRAO = 'S' AND TABELA.CODIGO = ? AND TABELA.SETOR = ? AND TABELA.PARTE = ?
         ORDER BY TABELA.IDENTIFICADOR)",
        chave.codigo, chave.setor, chave.parte});
}

double TCustosProduto::Preco(std::string_view cor) const { return RoundTo(maoDeObra_ + Material(cor), 4); }

double TCustosProduto::Material(std::string_view cor) const
{
    const auto own = materiais_.find(cor);
    if (own != materiais_.end() && own->second > 0)
        return own->second;
    double total = 0;
    std::size_t colours = 0;
    for (auto other = materiais_.begin(); other != materiais_.end(); ++other) {
        if (other == own)
            continue;
        total += other->second;
        ++colours;
    }
    return colours == 0 ? 0 : total / static_cast<double>(colours);
}

TCustosProduto TPrecos::CustosProduto(std::string_view numero)
{
    const double labour = MaoDeObra(numero);
    const double kept
        = labour - labour * tabela_.PercentualMaoDeObra1() / 100 - labour * tabela_.PercentualMaoDeObra2() / 100;
    return {kept, Materiais(numero)};
}

double TPrecos::Preco(const TStatement& statement)
{
    const TTableData rows = tabela_.IBDatabase.Open(statement);
    return rows.RowCount() == 0 ? 0 : RoundTo(rows.Column(0).Float(0), 3);
}

double TPrecos::MaoDeObra(std::string_view numero)
{
    const TTableData rows = tabela_.IBDatabase.Open({R"(
        SELECT SUM(M.UNITARIO) AS TOTAL
          FROM (SELECT MAX(UNITARIO) AS UNITARIO FROM {FACCAO3} WHERE NUMERO = ? GROUP BY OP, PARTE) M)",
        numero});
    return rows.Column(0).Float(0);
}

std::map<std::string, double, std::less<>> TPrecos::Materiais(std::string_view numero)
{
    const TTableData rows = tabela_.IBDatabase.Open({R"(
        SELECT COR, SUM(CUSTO * CONSUMO) AS CUSTO FROM {PCPFTOF} WHERE NUMERO = ? AND COR IS NOT NULL GROUP BY COR)",
        numero});
    std::map<std::string, double, std::less<>> materials;
    for (std::size_t row = 0; row < rows.RowCount(); ++row)
        materials.emplace(rows.Column(0).Text(row), rows.Column(1).Float(row));
    return materials;
}

} // namespace alinhavo
