#pragma once

#include "forms/TEvent.h"
#include "forms/TTableData.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace alinhavo {

class TDataSet;

/// How a field presents itself; all of it may be changed by the screen. Code may write a read-only field.
struct TFieldOptions {
    std::string title = {}; ///< of its grid column; empty: the field's name
    int decimals = -1; ///< digits behind the comma on screen; -1: as many as there are
    bool readOnly = false;
    bool visible = true;
};

/// A column of a dataset, read and written at its current row. Reading on an empty dataset gives null. Writing needs a
/// row in edit (TDataSet::Edit, Append, Insert); otherwise std::logic_error.
class TField {
public:
    /// A member of a dataset type, or made at run time by TDataSet::AddField.
    TField(TDataSet& dataset, std::string name, TFieldKind kind, int size = 0, TFieldOptions options = {});
    virtual ~TField();
    TField(const TField&) = delete;
    TField& operator=(const TField&) = delete;

    const std::string& Name() const { return name_; }
    TFieldKind Kind() const { return kind_; }
    int Size() const
    {
        return size_;
    } ///< characters of a text, 0 when unlimited; a longer text is cut when it is written
    TDataSet& DataSet() const { return dataset_; }

    bool IsNull() const;
    TValue Value() const;
    /// Of a row in edit: as it is stored, null for a new row. Otherwise the value.
    TValue OldValue() const;
    std::string AsString() const;
    double AsFloat() const;
    std::int64_t AsInteger() const; ///< cut towards zero
    TDateTime AsDateTime() const;
    /// As a grid shows it: dates, numbers with a comma and the field's decimals.
    std::string DisplayText() const { return DisplayText(Value()); }
    std::string DisplayText(const TValue& value) const;

    /// Converted to the field's kind, texts without trailing blanks. Fires OnChange when the value is another than
    /// before; an equal one changes nothing.
    void Set(const TValue& value);
    void Clear() { Set(TValue()); }
    /// What a person typed: converted with comma or point, DD/MM/YYYY; nothing typed is null. A text that is no number
    /// or date raises std::invalid_argument with a Portuguese text and changes nothing.
    void SetTyped(std::string_view text);

    /// What the value is among the values of this field: a date for a text that reads as one, no trailing blanks.
    TValue Comparable(const TValue& value) const;

    TFieldOptions options;
    TEvent<TField&> OnChange;

private:
    friend class TDataSet;

    TValue Converted(const TValue& value) const;
    std::string Cut(std::string_view text) const;
    TValue Typed(std::string_view text) const;

    TDataSet& dataset_;
    std::string name_;
    TFieldKind kind_;
    int size_;
    std::size_t column_ = 0; ///< in the dataset's rows; the dataset keeps it right
};

class TStringField final : public TField {
public:
    TStringField(TDataSet& dataset, std::string name, int size, TFieldOptions options = {})
        : TField(dataset, std::move(name), TFieldKind::Text, size, std::move(options))
    {
    }
    std::string value() const { return AsString(); }
    void operator=(std::string_view text) { Set(TValue(text)); }
};

class TIntegerField final : public TField {
public:
    TIntegerField(TDataSet& dataset, std::string name, TFieldOptions options = {})
        : TField(dataset, std::move(name), TFieldKind::Integer, 0, std::move(options))
    {
    }
    std::int64_t value() const { return AsInteger(); }
    void operator=(std::int64_t number) { Set(TValue(number)); }
};

class TFloatField final : public TField {
public:
    TFloatField(TDataSet& dataset, std::string name, TFieldOptions options = {})
        : TField(dataset, std::move(name), TFieldKind::Float, 0, std::move(options))
    {
    }
    double value() const { return AsFloat(); }
    void operator=(double number) { Set(TValue(number)); }
};

class TDateField final : public TField {
public:
    TDateField(TDataSet& dataset, std::string name, TFieldOptions options = {})
        : TField(dataset, std::move(name), TFieldKind::Date, 0, std::move(options))
    {
    }
    TDateTime value() const { return AsDateTime(); }
    void operator=(TDateTime date) { Set(TValue(date)); }
};

} // namespace alinhavo
