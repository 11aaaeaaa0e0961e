// Random histories of one order, confirmed on the screen and reversed on it until nothing is left.
//
// ALINHAVO_REVERSAL_HISTORIES says how many (a tenth of them on PostgreSQL), ALINHAVO_REVERSAL_SEED with which one to
// begin; a failure names its seed.

#include "facmov/TMovementTest.h"

#include "app/demo/TRandom.h"
#include "host/TTableDecl.h"
#include "platform/verification/TVerification.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <map>

namespace alinhavo {
namespace {

constexpr std::string_view Order = "000123";
constexpr std::string_view Product = "CAM01";
constexpr double Spare = 1000; ///< in each warehouse before the order

int Setting(const char* name, int otherwise)
{
    const char* text = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    return text ? std::atoi(text) : otherwise;
}

/// Second quality and incomplete pieces go to warehouse 08.
class TfmMovEstRejeitado final : public TForm {
public:
    explicit TfmMovEstRejeitado(TApplication& application)
        : TForm(application, "TfmMovEstRej", "Rejeitados")
    {
        OnShow.connect(this, &TfmMovEstRejeitado::TelaShow);
    }

    void TelaShow()
    {
        TForm* caller = Application().FindFormByClass("TfmFacMov");
        dynamic_cast<IMovementScreen&>(*caller).DefineReprovados("08", "050");
        caller->ModalResult = TModalResult::Ok;
        ModalResult = TModalResult::Ok;
    }
};

/// What the rules of this history are.
struct TRules {
    bool twoParts = false;
    bool together = false; ///< all parts leave the last sector at once
    bool keepsOrder[2] = {}; ///< the part keeps the order's quantities in step
    bool ownLot = false; ///< stock is kept in the lot of the order
    std::vector<std::string> flows[2];

    std::string Lot() const { return ownLot ? std::string(Order) : "000000"; }
};

using TRowsByTable = std::map<std::string, std::vector<std::string>>;

class ReversalProperty : public TMovementTest {
protected:
    void SetUp() override
    {
        TMovementTest::SetUp();
        if (session)
            session->RegisterForm("TfmMovEstRej",
                [](TApplication& application) { return std::make_unique<TfmMovEstRejeitado>(application); });
    }

    void Play(std::uint64_t seed);

    int movements = 0;
    int reversals = 0;
    int joint = 0;

private:
    void Clear();
    TRules Invent(TRandom& random);
    void EnterProduction(const TRules& rules);
    void Move(TRandom& random, const TRules& rules);
    void FillGrid(TRandom& random);
    void FillRow(TRandom& random, std::int64_t id, double pending);
    void Pack(TRandom& random, double lastPosition);
    void ReverseAll(TRandom& random, const TRules& rules);
    bool ReverseOne(TRandom& random);
    void StartEntry(const TRules& rules, std::size_t part, const std::string& sector);
    void GiveUpEntry();
    TRowsByTable Snapshot();
    void CompareStock(const TRules& rules);
    void ExpectNoError(std::string_view when);

    double taken01_ = 0; ///< good pieces that the reversals will take out of stock though they never entered it
    double taken08_ = 0; ///< rejected ones
};
ON_BOTH_SERVERS(ReversalProperty);

std::string Part(std::size_t index) { return index == 0 ? "01" : "02"; }

void ReversalProperty::Clear()
{
    for (const std::string_view table :
        {"FACCAO", "FACCAO3", "OF1", "OF_ITEN", "PRO_FLUXO", "FLUXO", "GERALOG", "PA_ITEN", "PA_MOV", "PCP_PACOTE"})
        db->ExecSQL({"DELETE FROM {?}", TName(table)});
    db->CommitRetaining();
}

TRules ReversalProperty::Invent(TRandom& random)
{
    const auto flag = [&](int percent) { return random.Chance(percent) ? "S" : "N"; };
    TRules rules;
    rules.twoParts = random.Chance(50);
    rules.together = rules.twoParts && random.Chance(50);
    rules.ownLot = random.Chance(30);
    SetParameter("FAC", 260, rules.together ? "S" : "N");
    SetParameter("PCP", 140, rules.ownLot ? "2" : "1");
    for (std::size_t part = 0; part < 2; ++part) {
        rules.keepsOrder[part] = random.Chance(rules.together ? 25 : 50);
        Write({"UPDATE {TIPO_APL} SET ESTOQUE = ?, BAIXA = ?, ATUALIZA = ? WHERE CODIGO = ?",
            flag(rules.together ? 90 : 50), flag(50), rules.keepsOrder[part] ? "S" : "N", Part(part)});
        for (const char* sector : {"10", "20", "30"}) {
            if (random.Chance(rules.together ? 30 : 60))
                rules.flows[part].emplace_back(sector);
        }
        rules.flows[part].emplace_back("40");
        for (std::size_t step = 0; step < rules.flows[part].size(); ++step)
            Write({"INSERT INTO {FLUXO} (CODIGO, ORDEM, SETOR) VALUES (?, ?, ?)", part == 0 ? "F01" : "F02", step + 1,
                rules.flows[part][step]});
        if (part == 0 || rules.twoParts)
            Write({"INSERT INTO {PRO_FLUXO} (CODIGO, PARTE, FLUXO, PADRAO) VALUES (?, ?, ?, ?)", Product, Part(part),
                part == 0 ? "F01" : "F02", part == 0 ? "S" : "N"});
    }
    for (const std::string_view sector : {"10", "20", "30", "40"})
        Write({"UPDATE {CADFLUXO} SET IND_PAG = ?, BAIXAMAIOR = ?, MOVREPROVADO = ? WHERE CODIGO = ?",
            random.Between(1, 4), flag(25), flag(20), sector});
    Write({"UPDATE {PRODUTO} SET ESTOQUE = ?", flag(80)});

    double open = 0;
    for (const std::string_view colour : {"000001", "000009"}) {
        for (const std::string_view size : {"P", "M"}) {
            for (const std::string_view warehouse : {"01", "08"}) {
                Write({"INSERT INTO {PA_ITEN} (CODIGO, COR, TAM, TIPO, DEPOSITO, LOTE, QUANTIDADE) "
                       "VALUES (?, ?, ?, '1', ?, ?, ?)",
                    Product, colour, size, warehouse, rules.Lot(), Spare});
                Write({"INSERT INTO {PA_MOV} (CODIGO, COR, TAM, QUALIDADE, DEPOSITO, LOTE, ORIGEM, SAIDA, QUANTIDADE) "
                       "VALUES (?, ?, ?, '1', ?, ?, 'IN', 'N', ?)",
                    Product, colour, size, warehouse, rules.Lot(), Spare});
            }
            if (open > 0 && random.Chance(50))
                continue;
            const int pieces = random.Between(1, 12);
            open += pieces;
            Write({"INSERT INTO {OF_ITEN} (NUMERO, COR, TAM, QTDE, QTDE_B, QTDE_C) VALUES (?, ?, ?, ?, 0, 0)", Order,
                colour, size, pieces});
        }
    }
    Write({"INSERT INTO {OF1} (NUMERO, CODIGO, PEDIDO, ATIVOS, FAC_QTDE) VALUES (?, ?, '', ?, 'N')", Order, Product,
        open});
    return rules;
}

void ReversalProperty::StartEntry(const TRules&, std::size_t part, const std::string& sector)
{
    clerk.Click("btn00Incluir");
    clerk.Type("edtOFNum", Order);
    clerk.Select("CbParte", Screen().CbParte.IndexOfPrefix(Part(part)));
    clerk.Type("EdtSetor", sector);
}

void ReversalProperty::GiveUpEntry()
{
    if (Screen().pnlConfirma.Visible())
        clerk.Click("btn00Desiste");
}

// The first positions of a part are committed as soon as their holder is known.
void ReversalProperty::EnterProduction(const TRules& rules)
{
    for (std::size_t part = 0; part < (rules.twoParts ? 2U : 1U); ++part) {
        StartEntry(rules, part, rules.flows[part].front());
        clerk.Pass("edtFaccao");
        GiveUpEntry();
    }
}

void ReversalProperty::FillRow(TRandom& random, std::int64_t id, double pending)
{
    const auto type = [&](const char* column, int pieces) {
        const TDataSet& rows = Screen().TbTemp;
        for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
            if (rows.CellValue(row, Screen().TbTemp.ID).AsInteger() == id)
                return clerk.TryCell("dbg00Grade", row, column, std::to_string(pieces));
        }
        return false;
    };
    const int pieces = static_cast<int>(pending);
    const bool more = random.Chance(20) && Screen().BaixaSetorMaior(Screen().EdtSetor.text());
    if (random.Chance(40) && !more)
        return;
    int left = more ? pieces + random.Between(1, 3) : pieces;
    const int good = random.Between(0, left);
    type("Quant", good);
    left -= good;
    for (const char* column : {"Quant_2", "Quant_I", "Quant_F"}) {
        if (left <= 0 || random.Chance(40))
            continue;
        const int lost = random.Between(0, left);
        type(column, lost);
        left -= lost;
    }
}

void ReversalProperty::FillGrid(TRandom& random)
{
    std::vector<std::pair<std::int64_t, double>> lines;
    TTbMovimento& rows = Screen().TbTemp;
    for (std::size_t row = 0; row < rows.RecordCount(); ++row)
        lines.emplace_back(rows.CellValue(row, rows.ID).AsInteger(), rows.CellValue(row, rows.Quant).AsFloat());
    for (const auto& [id, pending] : lines)
        FillRow(random, id, pending);
}

void ReversalProperty::Move(TRandom& random, const TRules& rules)
{
    const std::size_t part = rules.twoParts ? random.Index(2) : 0;
    const TTableData sectors = db->Open({"SELECT DISTINCT OP FROM {FACCAO} WHERE PARTE = ? "
                                         "AND QT_ORIG - QUANT - QUANT_2 - QUANT_I - QUANT_F > 0 ORDER BY OP",
        Part(part)});
    const std::string sector = sectors.RowCount() > 0 && random.Chance(90)
        ? sectors.Column(0).Value(random.Index(sectors.RowCount())).AsString()
        : random.Pick(rules.flows[part]);
    const double moved = Number({"SELECT COUNT(*) FROM {FACCAO3}"});
    const double lastPosition = Number({"SELECT MAX(IDENTIFICADOR) FROM {FACCAO}"});

    StartEntry(rules, part, sector);
    const auto open = [&] { return Screen().pnlConfirma.Visible(); };
    if (open() && Screen().EdtSetor.text() == sector && !Screen().EdtSetor.Focused()) {
        if (!Screen().cbMovimento.Items().empty() && random.Chance(30))
            clerk.Select("cbMovimento", static_cast<int>(random.Index(Screen().cbMovimento.Items().size())));
        else
            clerk.Pass("cbMovimento");
        if (Screen().edtFaccao.Enabled())
            clerk.Pass("edtFaccao");
        clerk.Type("edtFacDest", random.Chance(50) ? "00001" : "00010");
    }
    if (!Screen().TbTemp.IsEmpty()) {
        FillGrid(random);
        joint += Screen().tbBaixaPartes.IsEmpty() ? 0 : 1;
        if (random.Chance(10))
            clerk.Check("CbProximo", false);
        clerk.Click("btn00Confirmar");
    }
    GiveUpEntry();
    movements += Number({"SELECT COUNT(*) FROM {FACCAO3}"}) > moved ? 1 : 0;
    Pack(random, lastPosition);
    ExpectNoError("after a movement");
}

// Some of what was opened is packed, as another screen does.
void ReversalProperty::Pack(TRandom& random, double lastPosition)
{
    if (!random.Chance(30))
        return;
    Write({"INSERT INTO {PCP_PACOTE} (NUMERO, PARTE, SETOR, MOV, PACOTE, COR, TAM, QTDE) "
           "SELECT NUMERO, PARTE, OP, MOV, '001', COR, TAM, 1 FROM {FACCAO} WHERE IDENTIFICADOR > ?",
        lastPosition});
}

// False when the screen allows no movement on it to be reversed.
bool ReversalProperty::ReverseOne(TRandom& random)
{
    TQryEstorno& rows = Screen().QryEstorno;
    std::vector<std::size_t> candidates(rows.RecordCount());
    for (std::size_t row = 0; row < candidates.size(); ++row)
        candidates[row] = row;
    while (!candidates.empty()) {
        const auto chosen = candidates.begin() + static_cast<std::ptrdiff_t>(random.Index(candidates.size()));
        const std::size_t before = rows.RecordCount();
        if (Screen().pnlEstornoBaixa.Visible()) {
            if (const std::string warehouse = rows.CellValue(*chosen, rows.DEPOSITO).AsString(); !warehouse.empty())
                clerk.Type("edtRDeposito", warehouse);
            clerk.Type("edtDepositoRep", "08");
        }
        clerk.GoTo("DBGrid3", *chosen, "MOV");
        clerk.Click("BitBtn6");
        if (rows.RecordCount() < before)
            return true;
        candidates.erase(chosen);
    }
    return false;
}

void ReversalProperty::ReverseAll(TRandom& random, const TRules& rules)
{
    clerk.Turn("PageControl2", 2);
    clerk.Type("edtM02OF", Order);
    std::vector<int> parts{0};
    if (rules.twoParts)
        parts.insert(random.Chance(50) ? parts.begin() : parts.end(), 1);
    for (const int part : parts) {
        clerk.Select("CbEstorParte", part);
        clerk.Click("BitBtn1");
        while (!Screen().QryEstorno.IsEmpty()) {
            clerk.Heard();
            if (!ReverseOne(random)) {
                for (const std::string& text : clerk.Heard())
                    ADD_FAILURE() << "nothing can be reversed: " << text;
                return;
            }
            ++reversals;
            ExpectNoError("after a reversal");
            if (HasFailure())
                return;
        }
    }
}

void ReversalProperty::ExpectNoError(std::string_view when)
{
    for (const TViolation& violation : Verify(*db)) {
        EXPECT_NE(violation.severity, TSeverity::Error) << when << ", " << violation.check << ": " << violation.keys;
        EXPECT_NE(violation.check, "pacote_sem_posicao") << when << ": " << violation.keys;
    }
}

TRowsByTable ReversalProperty::Snapshot()
{
    TRowsByTable tables;
    for (const TTableDecl& table : Tables()) {
        const TName name(table.name);
        const TTableData data
            = db->Open(table.global ? TStatement("SELECT * FROM ?", name) : TStatement("SELECT * FROM {?}", name));
        std::vector<std::string>& rows = tables[std::string(table.name)];
        for (std::size_t row = 0; row < data.RowCount(); ++row) {
            std::string text;
            for (std::size_t column = 0; column < data.ColumnCount(); ++column)
                text += data.Column(column).Name() + "=" + data.Column(column).Value(row).AsString() + " ";
            rows.push_back(std::move(text));
        }
        std::ranges::sort(rows);
    }
    return tables;
}

// Stock is back, save what goes out without having come in: pieces of a part that left with another, whose history says
// that they are in stock although those of the grid alone were posted, and good pieces that left a sector before the
// last one with rejects, whose posting marks the whole line.
void ReversalProperty::CompareStock(const TRules& rules)
{
    const auto stock = [&](std::string_view warehouse) {
        return Number(
            {"SELECT SUM(QUANTIDADE) FROM {PA_ITEN} WHERE DEPOSITO = ? AND LOTE = ?", warehouse, rules.Lot()});
    };
    EXPECT_EQ(stock("01"), 4 * Spare - taken01_);
    EXPECT_EQ(stock("08"), 4 * Spare - taken08_);
}

void ReversalProperty::Play(std::uint64_t seed)
{
    TRandom random(seed, "reversal");
    Clear();
    const TRules rules = Invent(random);
    clerk.Open("TfmFacMov");
    EnterProduction(rules);
    TRowsByTable before = Snapshot();
    for (int attempts = random.Between(1, rules.together ? 12 : 8); attempts > 0 && !HasFailure(); --attempts)
        Move(random, rules);

    // A confirmation without quantities moves nothing, and governs the order all the same.
    const bool confirmed = Number({"SELECT COUNT(*) FROM {GERALOG} WHERE TEXTO LIKE 'MOVIMENTO DE OF %'"}) > 0;
    const double finished = Number({"SELECT SUM(QTDE_B) FROM {OF_ITEN}"});
    taken01_ = Number({"SELECT SUM(QUANT) FROM {FACCAO3} WHERE ESTOQUE = 'S' AND (REPROCESSO IS NULL OR OP <> '40' "
                       "OR (SELECT MAX(ESTOQUE) FROM {PRODUTO}) <> 'S')"});
    taken08_ = Number({"SELECT SUM(H.QUANT_2 + H.QUANT_I) FROM {FACCAO3} H JOIN {CADFLUXO} S ON S.CODIGO = H.OP "
                       "WHERE H.ESTOQUE = 'S' AND H.REPROCESSO IS NULL AND S.MOVREPROVADO = 'S'"});
    if (!HasFailure())
        ReverseAll(random, rules);
    clerk.Close("TfmFacMov");
    if (HasFailure())
        return;

    CompareStock(rules);
    TRowsByTable after = Snapshot();
    // The lines of the log stay, and stock keeps the history of what came in and went out.
    for (const char* table : {"GERALOG", "PA_MOV", "PA_ITEN"}) {
        before.erase(table);
        after.erase(table);
    }
    // What left with another part without a quantity has a history that the reversal does not show.
    std::erase_if(after["FACCAO3"], [](const std::string& row) {
        return row.find(" QUANT=0 QUANT_2=0 QUANT_I=0 QUANT_F=0 ") != std::string::npos;
    });
    // Where a part that left with another keeps the order in step, its losses and an excess that it never had are taken
    // back from the order, as its history holds only the balance that it had left.
    if (rules.together && (rules.keepsOrder[0] || rules.keepsOrder[1])) {
        before.erase("OF_ITEN");
        after.erase("OF_ITEN");
        before.erase("OF1");
        after.erase("OF1");
    }
    // Production goes on governing the order; pieces that are open again after having been finished are not summed.
    if (after.contains("OF1")) {
        const double open = Number({"SELECT SUM(QTDE) FROM {OF_ITEN}"});
        EXPECT_EQ(Number({"SELECT ATIVOS FROM {OF1}"}), confirmed ? open - finished : open);
        EXPECT_EQ(Number({"SELECT COUNT(*) FROM {OF1} WHERE FAC_QTDE = 'S'"}), confirmed ? 1 : 0);
        db->ExecSQL({"UPDATE {OF1} SET ATIVOS = ?, FAC_QTDE = 'N'", open});
        after["OF1"] = Snapshot()["OF1"];
        db->RollbackRetaining();
    }
    EXPECT_EQ(after, before);
}

TEST_P(ReversalProperty, RandomHistoriesAreUndoneByReversingAllTheirMovements)
{
    const int asked = Setting("ALINHAVO_REVERSAL_HISTORIES", 20);
    const int histories = IsFirebird() ? asked : std::max(asked / 10, 5);
    const int first = Setting("ALINHAVO_REVERSAL_SEED", 1);
    const auto begin = std::chrono::steady_clock::now();
    int played = 0;
    for (int seed = first; played < histories && !HasFailure(); ++seed, ++played) {
        SCOPED_TRACE("ALINHAVO_REVERSAL_SEED=" + std::to_string(seed));
        Play(static_cast<std::uint64_t>(seed));
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    std::cout << played << " histories, " << movements << " movements (" << joint << " of parts together), "
              << reversals << " lines reversed, " << took.count() << " s\n";
    if (played < 5) // a single one that is played again may be short
        return;
    EXPECT_GT(movements, played);
    EXPECT_GT(reversals, movements);
}

} // namespace
} // namespace alinhavo
