#include "forms/TDataSet.h"

#include "forms/TDataSet_guards.h"
#include "forms/text.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace alinhavo {

// Fetching rows late changes what the dataset holds, not what it stands for: to the one who asks they were there before.
TRowView& TDataSet::View() const
{
    const_cast<TDataSet*>(this)->NeedAllRows();
    CatchUpWithMaster();
    return view_;
}

void TDataSet::CatchUpWithMaster() const
{
    if (linkIsStale_ && !IsEditing())
        Relink();
}

bool TDataSet::Accepts(TRowNumber row) const
{
    if (master_) {
        if (!linkTests_)
            return false;
        if (!std::ranges::all_of(*linkTests_, [&](const TCellTest& link) { return link.Holds(rows_->Data(), row); }))
            return false;
    }
    if (!filter_)
        return true;
    const TStanding standing(*this, row);
    return filter_();
}

void TDataSet::Refill()
{
    view_.Fill([this](TRowNumber row) { return Accepts(row); });
    KeepCursorInside();
}

void TDataSet::ChangeView(const std::function<void()>& change)
{
    CheckBrowse();
    const TBookmark before = Bookmark();
    bof_ = false;
    eof_ = false;
    change();
    Tell({.rows = true, .cursor = true});
    if (Bookmark() != before)
        Scrolled();
}

void TDataSet::SetFilter(std::function<bool()> accepts)
{
    ChangeView([&] {
        std::function<bool()> previous = std::exchange(filter_, std::move(accepts));
        try {
            Refill();
        } catch (...) {
            filter_ = std::move(previous);
            throw;
        }
    });
}

void TDataSet::FilterBy(std::string_view field, const TValue& value)
{
    const TField& tested = FieldByName(field);
    SetFilter([&tested, wanted = tested.Comparable(value)] { return tested.Value() == wanted; });
}

void TDataSet::SortBy(std::string_view fields)
{
    UseKeys(SortKeys(fields));
    indexInUse_.clear();
}

void TDataSet::AddIndex(std::string name, std::vector<TSortKey> keys)
{
    Columns(keys);
    indexes_[UpperCase(name)] = std::move(keys);
    if (SameText(name, indexInUse_))
        UseIndex(name);
}

void TDataSet::UseIndex(std::string_view name)
{
    if (name.empty())
        return SortBy("");
    const auto index = indexes_.find(UpperCase(name));
    if (index == indexes_.end())
        throw std::out_of_range(Name() + " has no index " + std::string(name));
    UseKeys(index->second);
    indexInUse_ = name;
}

void TDataSet::DeleteIndex(std::string_view name)
{
    indexes_.erase(UpperCase(name));
    if (!indexInUse_.empty() && SameText(name, indexInUse_))
        SortBy("");
}

void TDataSet::UseKeys(std::vector<TSortKey> keys)
{
    std::vector<TRowView::TKey> columns = Columns(keys);
    ChangeView([&] {
        order_ = std::move(keys);
        view_.SetKeys(std::move(columns));
    });
}

std::vector<TRowView::TKey> TDataSet::Columns(const std::vector<TSortKey>& keys) const
{
    std::vector<TRowView::TKey> columns;
    for (const TSortKey& key : keys)
        columns.push_back({FieldByName(key.field).column_, key.direction});
    return columns;
}

std::vector<std::int64_t> TDataSet::RowNumbers() const
{
    const auto& shown = View().Shown();
    std::vector<std::int64_t> numbers(shown.begin(), shown.end());
    if (state_ == TDataSetState::Insert)
        numbers.insert(numbers.begin() + static_cast<std::ptrdiff_t>(view_.Cursor()), -1);
    return numbers;
}

std::vector<std::size_t> TDataSet::Sorted(std::string_view field, TDirection direction) const
{
    const auto numbers = RowNumbers();
    const auto& cells = rows_->Data().Column(FieldByName(field).column_);
    std::vector<std::size_t> sorted(numbers.size());
    std::iota(sorted.begin(), sorted.end(), std::size_t(0));
    std::ranges::stable_sort(sorted, [&](std::size_t left, std::size_t right) {
        if (numbers[left] < 0 || numbers[right] < 0)
            return numbers[right] < 0 && numbers[left] >= 0;
        const int order
            = cells.Compare(static_cast<std::size_t>(numbers[left]), static_cast<std::size_t>(numbers[right]));
        return direction == TDirection::Ascending ? order < 0 : order > 0;
    });
    return sorted;
}

void TDataSet::DropLostKeys()
{
    std::erase_if(order_, [this](const TSortKey& key) { return !FindField(key.field); });
}

std::vector<TCellTest> TDataSet::Tests(std::string_view fields, const std::vector<TValue>& values) const
{
    const std::vector<std::string> names = FieldNames(fields);
    if (names.empty() || names.size() != values.size())
        throw std::invalid_argument("fields \"" + std::string(fields) + "\" and their values differ in number");
    std::vector<TCellTest> tests;
    for (std::size_t index = 0; index < names.size(); ++index) {
        const TField& field = FieldByName(names[index]);
        tests.push_back({field.column_, field.Comparable(values[index])});
    }
    return tests;
}

// ---- Master and details

void TDataSet::FollowMaster(TDataSet& master, std::string_view masterFields, std::string_view fields)
{
    const std::vector<std::string> ofMaster = FieldNames(masterFields);
    const std::vector<std::string> own = FieldNames(fields);
    if (own.empty() || own.size() != ofMaster.size())
        throw std::invalid_argument(
            "master fields \"" + std::string(masterFields) + "\" do not match \"" + std::string(fields) + "\"");
    std::vector<TLink> links;
    for (std::size_t index = 0; index < own.size(); ++index)
        links.push_back({master.FieldByName(ofMaster[index]).Name(), FieldByName(own[index]).Name()});

    ChangeView([&] {
        if (master_)
            std::erase(master_->details_, this);
        master_ = &master;
        master.details_.push_back(this);
        links_ = std::move(links);
        linkIsStale_ = false;
        linkTests_ = LinkTests();
        Refill();
    });
}

void TDataSet::LeaveMaster()
{
    if (!master_)
        return;
    std::erase(master_->details_, this);
    master_ = nullptr;
    links_.clear();
    linkTests_.reset();
    linkIsStale_ = false;
    Refill();
    Tell({.rows = true, .cursor = true});
}

TDataSet::TLinkTests TDataSet::LinkTests() const
{
    if (!master_ || master_->IsEmpty())
        return std::nullopt;
    std::vector<TCellTest> tests;
    for (const TLink& link : links_) {
        const TField& field = FieldByName(link.field);
        tests.push_back({field.column_, field.Comparable(master_->FieldByName(link.masterField).Value())});
    }
    return tests;
}

void TDataSet::Relink() const
{
    linkIsStale_ = false;
    TLinkTests tests = LinkTests();
    if (tests == linkTests_)
        return;
    linkTests_ = std::move(tests);
    linkIsUntold_ = true;
    view_.FillFromStart([this](TRowNumber row) { return Accepts(row); });
}

void TDataSet::MasterMoved()
{
    View();
    if (!std::exchange(linkIsUntold_, false))
        return;
    bof_ = true;
    eof_ = false;
    Tell({.rows = true, .cursor = true});
}

} // namespace alinhavo
