// A memory table of 200,000 rows and 100 columns (texts, whole numbers, numbers, dates): loading, sorting, filtering,
// looking up, and the bytes of a cell.

#include "forms/TMemTable.h"

#include <benchmark/benchmark.h>

#include <random>
#include <string>

namespace alinhavo {
namespace {

constexpr std::size_t Rows = 200'000;
constexpr std::size_t Columns = 100;

struct TFetched : TDataSet {
    using TDataSet::Adopt;
};

TTableData Fetched()
{
    std::mt19937 random(1);
    TTableData data;
    for (std::size_t column = 0; column < Columns; ++column) {
        constexpr TFieldKind Kinds[] = {TFieldKind::Text, TFieldKind::Float, TFieldKind::Integer, TFieldKind::Date};
        data.AddColumn("C" + std::to_string(column), Kinds[column % 4], column % 4 == 0 ? 40 : 0);
    }
    data.Reserve(Rows);
    for (std::size_t row = 0; row < Rows; ++row) {
        for (std::size_t column = 0; column < Columns; ++column) {
            const auto draw = static_cast<std::int64_t>(random() % 10'000);
            if (column % 4 == 0)
                data.Column(column).AppendText("Malharia fio penteado " + std::to_string(draw));
            else if (column % 4 == 3)
                data.Column(column).AppendDate(TDateTime::FromDays(20'000 + draw % 365));
            else
                data.Column(column).Append(TValue(draw));
        }
    }
    return data;
}

TFetched& Source()
{
    static TFetched source;
    if (!source.Active())
        source.Adopt(Fetched(), true);
    return source;
}

TMemTable& Table()
{
    static TMemTable table;
    if (table.IsEmpty()) {
        table.CopyStructure(Source());
        table.Load(Source());
    }
    return table;
}

void CountRows(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Rows));
}

void Load(benchmark::State& state)
{
    TMemTable table;
    table.CopyStructure(Source());
    for (auto _ : state)
        table.Load(Source());
    CountRows(state);
    state.counters["bytes_per_cell"] = static_cast<double>(table.Bytes()) / (Rows * Columns);
}
BENCHMARK(Load)->Unit(benchmark::kMillisecond);

/// Rows of five written columns, appended one by one under an order, with controls disabled.
void AppendAndPost(benchmark::State& state)
{
    const auto rows = state.range(0);
    std::mt19937 random(1);
    for (auto _ : state) {
        TMemTable table;
        table.CopyStructure(Source());
        table.SortBy("C0;C1");
        const auto off = table.DisableControls();
        for (std::int64_t row = 0; row < rows; ++row) {
            table.Append();
            for (std::size_t field = 0; field < 5; ++field)
                table.Fields()[field]->Set(TValue(random() % 10'000));
            table.Post();
        }
        table.First();
    }
    state.SetItemsProcessed(state.iterations() * rows);
    state.SetComplexityN(rows);
}
BENCHMARK(AppendAndPost)->RangeMultiplier(4)->Range(5'000, 80'000)->Unit(benchmark::kMillisecond)->Complexity();

/// The line of a key is found or appended: what sums by period, sector or colour do.
void FindOrAppend(benchmark::State& state)
{
    const auto rows = state.range(0);
    std::mt19937 random(1);
    for (auto _ : state) {
        TMemTable table;
        table.CopyStructure(Source());
        table.SortBy("C2");
        const auto off = table.DisableControls();
        TField& key = table.FieldByName("C2");
        for (std::int64_t row = 0; row < rows; ++row) {
            const TValue wanted(random());
            if (table.Locate("C2", {wanted}))
                continue;
            table.Append();
            key.Set(wanted);
            table.Post();
        }
    }
    state.SetItemsProcessed(state.iterations() * rows);
    state.SetComplexityN(rows);
}
BENCHMARK(FindOrAppend)->RangeMultiplier(4)->Range(5'000, 80'000)->Unit(benchmark::kMillisecond)->Complexity();

void Sort(benchmark::State& state, const char* order)
{
    for (auto _ : state) {
        Table().SortBy(order);
        benchmark::DoNotOptimize(Table().RecNo());
        state.PauseTiming();
        Table().SortBy("");
        benchmark::DoNotOptimize(Table().RecNo());
        state.ResumeTiming();
    }
    CountRows(state);
}
BENCHMARK_CAPTURE(Sort, ByText, "C0")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Sort, ByNumber, "-C1")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Sort, ByThreeFields, "C3;-C2;C4")->Unit(benchmark::kMillisecond);

void Filter(benchmark::State& state)
{
    const TField& quantity = Table().FieldByName("C1");
    for (auto _ : state) {
        Table().SetFilter([&] { return quantity.AsFloat() < 5'000; });
        state.PauseTiming();
        Table().ClearFilter();
        state.ResumeTiming();
    }
    CountRows(state);
}
BENCHMARK(Filter)->Unit(benchmark::kMillisecond);

/// No row is found: all of them are looked at.
void LocateByScan(benchmark::State& state)
{
    Table().SortBy("");
    for (auto _ : state)
        benchmark::DoNotOptimize(Table().Locate("C0;C1", {"Malharia fio penteado 1", -1}));
    CountRows(state);
}
BENCHMARK(LocateByScan)->Unit(benchmark::kMillisecond);

void LocateByOrder(benchmark::State& state)
{
    Table().SortBy("C0;C1");
    std::mt19937 random(1);
    for (auto _ : state)
        benchmark::DoNotOptimize(Table().Locate("C0", {"Malharia fio penteado " + std::to_string(random() % 10'000)}));
    Table().SortBy("");
}
BENCHMARK(LocateByOrder)->Unit(benchmark::kMicrosecond);

void ForEachRow(benchmark::State& state)
{
    const TField& quantity = Table().FieldByName("C1");
    for (auto _ : state) {
        double sum = 0;
        Table().ForEach([&] { sum += quantity.AsFloat(); });
        benchmark::DoNotOptimize(sum);
    }
    CountRows(state);
}
BENCHMARK(ForEachRow)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace alinhavo

BENCHMARK_MAIN();
