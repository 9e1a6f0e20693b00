#include "deck/model/table.h"

#include <algorithm>

#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/shape_actions.h"
#include "deck/model/table_cell.h"
#include "deck/model/text_frame.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

/// The shape that a cell is to the host.
class CellShapeObject : public ModelObject<CellShapeObject> {
 public:
  static constexpr const char* className = "Shape";
  static const MemberTable<CellShapeObject>& members() {
    using C = CellShapeObject;
    static const MemberTable<C> table{
        property<&C::type>(member::Type),
        property<&C::left>(member::Left),
        property<&C::top>(member::Top),
        property<&C::width>(member::Width),
        property<&C::height>(member::Height),
        property<&C::hasTextFrame>(member::HasTextFrame),
        property<&C::hasTable>(member::HasTable),
        property<&C::textFrame>(member::TextFrame),
        property<&C::textFrame2>(member::TextFrame2).from(12),
    };
    return table;
  }

  CellShapeObject(HostRef host, ShapeKey cell) : ModelObject(std::move(host)), cell_(std::move(cell)) {}
  void requireAlive() const {
    if (cell_.deleted()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t type() { return host::msoAutoShape; }
  float left() { return static_cast<float>(cellArea(cell_).left); }
  float top() { return static_cast<float>(cellArea(cell_).top); }
  float width() { return static_cast<float>(cellArea(cell_).width); }
  float height() { return static_cast<float>(cellArea(cell_).height); }
  std::int32_t hasTextFrame() { return host::msoTrue; }
  std::int32_t hasTable() { return host::msoFalse; }
  host::ObjectRef textFrame() { return makeTextFrame(host(), cell_); }
  host::ObjectRef textFrame2() { return makeTextFrame2(host(), cell_); }

 private:
  ShapeKey cell_;
};

class CellObject : public ModelObject<CellObject> {
 public:
  static constexpr const char* className = "Cell";
  static const MemberTable<CellObject>& members() {
    static const MemberTable<CellObject> table{
        property<&CellObject::shape>(member::Shape),
        property<&CellObject::selected>(member::Selected),
        method<&CellObject::select>(member::Select),
    };
    return table;
  }

  CellObject(HostRef host, ShapeKey cell) : ModelObject(std::move(host)), cell_(std::move(cell)) {}
  void requireAlive() const {
    if (cell_.deleted()) base::raise(base::errors::invalidRequest);
  }

  host::ObjectRef shape() { return makeCellShape(host(), cell_); }
  bool selected() {
    const WindowRef window = host()->windowOf(cell_.sheet.document);
    return window && std::ranges::find(window->selection.cells, cell_) != window->selection.cells.end();
  }
  void select() { selectCell(host(), cell_, true); }
  const ShapeKey& key() const { return cell_; }

 private:
  ShapeKey cell_;
};

/// The rows or the columns of a table.
class TableLinesObject : public ModelObject<TableLinesObject> {
 public:
  static constexpr const char* className = "";
  static const MemberTable<TableLinesObject>& members() {
    static const MemberTable<TableLinesObject> table{property<&TableLinesObject::count>(member::Count)};
    return table;
  }

  TableLinesObject(HostRef host, ShapeKey table, bool rows)
      : ModelObject(std::move(host)), table_(std::move(table)), rows_(rows) {}
  std::string typeName() const override { return rows_ ? "Rows" : "Columns"; }
  void requireAlive() const {
    if (table_.deleted()) base::raise(base::errors::invalidRequest);
  }
  std::int32_t count() {
    return static_cast<std::int32_t>(rows_ ? tableRows(table_.node) : tableColumns(table_.node));
  }

 private:
  ShapeKey table_;
  bool rows_;
};

class TableObject : public ModelObject<TableObject> {
 public:
  static constexpr const char* className = "Table";
  static const MemberTable<TableObject>& members() {
    static const MemberTable<TableObject> table{
        property<&TableObject::rows>(member::Rows),
        property<&TableObject::columns>(member::Columns),
        method<&TableObject::cell>(member::Cell, 2, 2),
    };
    return table;
  }

  TableObject(HostRef host, ShapeKey table) : ModelObject(std::move(host)), table_(std::move(table)) {}
  void requireAlive() const {
    if (table_.deleted()) base::raise(base::errors::invalidRequest);
  }

  host::ObjectRef rows() { return std::make_shared<TableLinesObject>(host(), table_, true); }
  host::ObjectRef columns() { return std::make_shared<TableLinesObject>(host(), table_, false); }
  host::ObjectRef cell(Arguments arguments) {
    const std::size_t row = collectionIndex(arguments[0].toInt(), tableRows(table_.node));
    const std::size_t column = collectionIndex(arguments[1].toInt(), tableColumns(table_.node));
    const pugi::xml_node node = tableCell(table_.node, row, column);
    if (!node) base::raise(base::errors::invalidRequest);
    return std::make_shared<CellObject>(host(), ShapeKey{table_.sheet, node});
  }

 private:
  ShapeKey table_;
};

}  // namespace

host::ObjectRef makeTable(const HostRef& host, const ShapeKey& shape) {
  return std::make_shared<TableObject>(host, shape);
}

void addToSelection(const HostRef& host, const host::Cell& cell) {
  if (const auto* object = dynamic_cast<const CellObject*>(cell.object().get())) {
    selectCell(host, object->key(), false);
  }
}

host::ObjectRef makeCellShape(const HostRef& host, const ShapeKey& cell) {
  return std::make_shared<CellShapeObject>(host, cell);
}

}  // namespace vellumark::deck
