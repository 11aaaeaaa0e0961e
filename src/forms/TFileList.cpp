#include "forms/TFileList.h"

#include "forms/IPropertySink.h"
#include "forms/TUserEvent.h"

namespace alinhavo {

namespace {

std::string FileName(const std::string& path) { return path.substr(path.find_last_of("/\\") + 1); }

} // namespace

TFileList::TFileList(TContainer& parent, std::string name, TFileListOptions options)
    : TControl(parent, std::move(name), CommonOptions(options))
{
}

void TFileList::SetFiles(std::vector<std::string> files)
{
    files_ = std::move(files);
    itemIndex_ = -1;
    Changed();
}

void TFileList::SetItemIndex(int index)
{
    const int valid = index >= 0 && index < static_cast<int>(files_.size()) ? index : -1;
    if (itemIndex_ == valid)
        return;
    itemIndex_ = valid;
    Changed();
    OnChange();
}

std::string TFileList::File() const { return itemIndex_ < 0 ? std::string() : files_[itemIndex_]; }

std::string TFileList::Perform(const TUserEvent& event)
{
    const bool twice = event.kind == TUserEvent::TKind::DoubleClick;
    if (!twice && event.kind != TUserEvent::TKind::Select)
        return TControl::Perform(event);
    if (event.index < 0 || event.index >= static_cast<int>(files_.size()))
        return Named("não tem o arquivo " + std::to_string(event.index + 1));
    if (!TakeFocus())
        return {};
    SetItemIndex(event.index);
    if (twice)
        OnDoubleClick();
    return {};
}

bool TFileList::KeyEffect(const TKey& key)
{
    const int step = key.name == "Down" ? 1 : key.name == "Up" ? -1 : 0;
    if (step == 0)
        return false;
    const int index = itemIndex_ + step;
    if (index >= 0 && index < static_cast<int>(files_.size()))
        SetItemIndex(index);
    return true;
}

void TFileList::Describe(IPropertySink& sink) const
{
    TControl::Describe(sink);
    std::vector<std::string> names;
    for (const auto& file : files_)
        names.push_back(FileName(file));
    sink.Texts("items", names);
    sink.Number("itemIndex", itemIndex_);
}

} // namespace alinhavo
