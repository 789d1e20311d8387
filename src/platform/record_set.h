// RecordSet: a data set with named fields and a current row. Ours keeps its cells by column, so that
// moving by any number of rows costs the same as moving by one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/object.h"

namespace qor {

class RecordSet : public TableObject {
 public:
    std::string_view ClassName() const override { return "ADODB.Recordset"; }
    std::span<const Member> Members() const override;
    MemberId DefaultMember() override;

    virtual bool Eof() const = 0;  // behind the last row, or no row at all
    virtual bool Bof() const = 0;  // before the first row, or no row at all
    /// Raises 3021 on a set without rows.
    virtual void MoveFirst() = 0;
    /// Moves by `rows`, back if negative; stops behind the last or before the first row. Raises 3021 when
    /// already there and moving further out, or without rows.
    virtual void Move(std::int32_t rows) = 0;
    /// The field of the current row. Raises 3265 for an unknown name and 3021 outside the rows.
    virtual Value Field(std::string_view name) const = 0;
    virtual Value FieldAt(std::size_t column) const = 0;

    virtual std::size_t FieldCount() const = 0;
    virtual std::string FieldName(std::size_t column) const = 0;
    /// The number of rows, or -1 where the set does not know it.
    virtual std::int32_t RowCount() const = 0;
};

class ColumnarRecordSet final : public RecordSet {
 public:
    explicit ColumnarRecordSet(std::vector<std::string> fields);

    /// Appends a row; `cells` has one value a field. Raises 5 otherwise.
    void AddRow(std::vector<Value>&& cells);
    /// Appends one cell to one column; the caller fills all columns of a row before the set is read.
    void AddCell(std::size_t column, Value cell) { columns_[column].push_back(std::move(cell)); }
    void Reserve(std::size_t rows);
    const Value& Cell(std::size_t row, std::size_t column) const { return columns_[column][row]; }

    bool Eof() const override { return position_ >= Rows(); }
    bool Bof() const override { return position_ < 0 || Rows() == 0; }
    void MoveFirst() override;
    void Move(std::int32_t rows) override;
    Value Field(std::string_view name) const override;
    Value FieldAt(std::size_t column) const override;
    std::size_t FieldCount() const override { return fields_.size(); }
    std::string FieldName(std::size_t column) const override { return fields_.at(column); }
    std::int32_t RowCount() const override { return static_cast<std::int32_t>(Rows()); }

 private:
    std::int64_t Rows() const { return columns_.empty() ? 0 : static_cast<std::int64_t>(columns_[0].size()); }

    std::vector<std::string> fields_;
    std::vector<std::vector<Value>> columns_;
    std::int64_t position_ = 0;
};

/// The field of the current row, or `standIn` where it holds Null: the foundation library's null-safe read.
Value FieldOr(const RecordSet& rows, std::string_view name, Value standIn);

/// An object of somebody else is taken where it has the shape of one (see late_bound.h).
template <>
Ref<RecordSet> As<RecordSet>(const Value& value);

}  // namespace qor
