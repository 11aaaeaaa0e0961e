#include "forms/TMemTable.h"

#include <utility>

namespace alinhavo {

TMemTable::TMemTable(TComponent& owner, std::string name)
    : TDataSet(owner, std::move(name))
{
    Open();
}

TMemTable::TMemTable(std::string name)
    : TDataSet(std::move(name))
{
    Open();
}

void TMemTable::Load(TDataSet& source) { Adopt(Fitted(source), false); }

void TMemTable::AppendFrom(TDataSet& source)
{
    CheckBrowse();
    AdoptMore(Fitted(source));
}

void TMemTable::CopyStructure(const TDataSet& source)
{
    RemoveAddedFields();
    for (const TField* field : source.Fields()) {
        if (!FindField(field->Name()))
            AddField(field->Name(), field->Kind(), field->Size(), field->options);
    }
}

void TMemTable::SetMaster(TDataSet& master, std::string_view masterFields, std::string_view fields)
{
    FollowMaster(master, masterFields, fields);
}

} // namespace alinhavo
