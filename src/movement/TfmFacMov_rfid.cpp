// A batch of tags read by an RFID reader, spread over the rows of the grid.

#include "forms/TApplication.h"
#include "movement/TfmFacMov.h"

#include <algorithm>

namespace alinhavo {

namespace {

constexpr int FormatoEAN = 0; ///< index in CbFormato
constexpr std::size_t CodigosPorConsulta = 200;

} // namespace

void TfmFacMov::LeRFID()
{
    if (!QuantSomenteLeitura())
        PreencheQuantidades(TPreenche::Zero);
    if (!OrvRFIDMov.Configurado())
        OrvRFIDMov.BuscarParametros();
    std::string numero;
    if (!InputBox("Movimentação RFID", "Nº da movimentação RFID", numero))
        return;
    std::string erro;
    if (!OrvRFIDMov.BuscarDados(numero, TbRFID, erro, "F"))
        return Mensagem("Falha no processo.\n" + erro);
    LancaRFID();
}

void TfmFacMov::LancaRFID()
{
    const TPecas pecas = PecasDasTags();
    const int formato = CbFormato.ItemIndex();
    std::string excedentes;
    bool completo = false;
    try {
        const auto controls = TbTemp.DisableControls();
        const TEventOff afterPost(TbTemp.AfterPost);
        CbFormato.SetItemIndexQuietly(FormatoEAN);
        TbTemp.SortBy("codigo;cor;tam;mov");
        completo = LancaTags(pecas, excedentes);
    } catch (...) {
        EncerraRFID(formato);
        throw;
    }
    EncerraRFID(formato);
    if (completo && !excedentes.empty())
        Mensagem(
            "Nos itens abaixo, a quantidade lida pelo RFID é superior a quantidade enviada a facção." + excedentes);
}

// A code that stayed behind in the field would make the grid's rule take it for a reading.
void TfmFacMov::EncerraRFID(int formato)
{
    EdtBarra.SetTextQuietly("");
    CbFormato.SetItemIndexQuietly(formato);
    TbTemp.SortBy(OrdemDaGrade);
    SomaQuantidades();
}

/// Tag by tag until one is refused; what was added until then stays.
bool TfmFacMov::LancaTags(const TPecas& pecas, std::string& excedentes)
{
    const bool aMaior = BaixaSetorMaior(EdtSetor.text());
    const TPeca desconhecida;
    for (std::size_t tag = 0; tag < TbRFID.RecordCount(); ++tag) {
        const std::string codigo = TbRFID.CellValue(tag, TbRFID.CODIGO).AsString();
        EdtBarra.SetTextQuietly(codigo);
        const auto peca = pecas.find(codigo);
        const double quantidade = TbRFID.CellValue(tag, TbRFID.QTDE).AsFloat();
        if (!LancaTag(peca == pecas.end() ? desconhecida : peca->second, quantidade, aMaior, excedentes))
            return false;
    }
    return true;
}

/// Fills the piece's rows, oldest batch first, each with its balance. The table is sorted by piece and batch.
bool TfmFacMov::LancaTag(const TPeca& peca, double quantidade, bool aMaior, std::string& excedentes)
{
    const bool existe = TbTemp.Locate("codigo;cor;tam", {peca.codigo, peca.cor, peca.tam});
    const TBookmark primeira = TbTemp.Bookmark();
    const auto naPeca = [&] { return !TbTemp.Eof() && EhDaPeca(TbTemp.RecNo() - 1, peca); };
    bool pendente = existe && aMaior;
    for (; existe && !pendente && naPeca(); TbTemp.Next())
        pendente = TemPendente(TbTemp.RecNo() - 1);
    if (!pendente)
        return Alarme("Tag RFID não encontrada na OF ou já baixada."), false;

    for (TbTemp.GoToBookmark(primeira); quantidade > 0 && naPeca(); TbTemp.Next()) {
        const double parcela = std::min(TbTemp.Saldo.value(), quantidade);
        SomaQuant(parcela);
        quantidade -= parcela;
    }
    if (quantidade <= 0)
        return true;
    if (!aMaior) {
        TDialog aviso{.title = Caption(),
            .text = "Quantidade excedida. Impossível continuar.",
            .icon = TIcon::Warning,
            .beep = true};
        Application().ShowDialog(aviso);
        return false;
    }
    TbTemp.GoToBookmark(primeira);
    SomaQuant(quantidade);
    excedentes += "\nCor: " + TbTemp.Cor.value() + "-" + TbTemp.DescCor.value() + " / Tam.: " + TbTemp.Tam.value();
    return true;
}

/// What the codes of the batch stand for, asked for many at a time.
TfmFacMov::TPecas TfmFacMov::PecasDasTags()
{
    std::unordered_set<std::string> codigos;
    TbRFID.ForEach([&] {
        if (!TbRFID.CODIGO.value().empty())
            codigos.insert(TbRFID.CODIGO.value());
    });
    TPecas pecas;
    for (auto codigo = codigos.begin(); codigo != codigos.end();) {
        std::string lista;
        for (std::size_t count = 0; count < CodigosPorConsulta && codigo != codigos.end(); ++count, ++codigo)
            lista += (lista.empty() ? "" : ",") + Aspas(*codigo);
        const TLiteralList literais(lista);
        TOrvQuery itens
            = Consulta("SELECT BARRA, BARRACLI, CODIGO, COR, TAM FROM {PA_ITEN} WHERE BARRA IN (?) OR BARRACLI IN (?)",
                literais, literais);
        itens.ForEach([&] {
            for (const auto* coluna : {"BARRA", "BARRACLI"})
                if (const std::string lido = itens.FieldByName(coluna).AsString(); codigos.contains(lido))
                    pecas.try_emplace(lido,
                        TPeca{itens.FieldByName("CODIGO").AsString(), itens.FieldByName("COR").AsString(),
                            itens.FieldByName("TAM").AsString()});
        });
    }
    return pecas;
}

} // namespace alinhavo
