// The tree grid, held against Qt's own views and models with the same texts.
#include <benchmark/benchmark.h>

#include <QAbstractItemModel>
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTreeView>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

#include "adapters/qtgrid/qt_tree_grid.h"
#include "bench/cases.h"
#include "bench/company.h"
#include "bench/sample_database.h"
#include "bench/session.h"
#include "data/booking_circles.h"
#include "dialogs/main/layout.h"
#include "dialogs/main/tree.h"

namespace vexnumkr::bench {
namespace {

constexpr std::int16_t columns = 12;

const ControlDescription& gridOf(const FormDescription& dialog) {
  for (const ControlDescription& control : dialog.controls)
    if (control.kind == ControlKind::TreeGrid) return control;
  throw std::logic_error("the dialog has no grid");
}

// The cells of a grid as texts: those of an item, and whether the item is a group.
struct Cells {
  bool isGroup = false;
  std::vector<QString> texts;
};

std::vector<Cells> cellsOf(const TreeGrid& grid) {
  std::vector<Cells> all;
  for (std::int32_t item = 0; item < grid.ListCount(); ++item) {
    Cells cells{grid.ItemLevel(item) == 0, {}};
    for (std::int16_t column = 0; column < columns; ++column)
      cells.texts.push_back(QString::fromStdString(grid.List(item, column)));
    all.push_back(std::move(cells));
  }
  return all;
}

void fill(QStandardItemModel& model, const std::vector<Cells>& all) {
  QStandardItem* group = nullptr;
  for (const Cells& cells : all) {
    QList<QStandardItem*> row;
    for (const QString& text : cells.texts)
      row.append(text.isEmpty() ? nullptr : new QStandardItem(text));
    if (row.front() == nullptr) row.front() = new QStandardItem;
    if (cells.isGroup) {
      model.appendRow(row);
      group = row.front();
    } else {
      group->appendRow(row);
    }
  }
}

// The simplest model that can be: the texts, two levels, nothing else.
class PlainModel final : public QAbstractItemModel {
 public:
  explicit PlainModel(const std::vector<Cells>& all) {
    for (const Cells& cells : all) {
      if (cells.isGroup) groups_.emplace_back();
      groups_.back().push_back(&cells);
    }
  }

  QModelIndex index(int row, int column, const QModelIndex& parent) const override {
    return createIndex(row, column, parent.isValid() ? idOfChildren(parent.row()) : 0);
  }
  QModelIndex parent(const QModelIndex& child) const override {
    if (child.internalId() == 0) return {};
    return createIndex(static_cast<int>(groupOf(child)), 0, quintptr{0});
  }
  int rowCount(const QModelIndex& parent) const override {
    if (!parent.isValid()) return static_cast<int>(groups_.size());
    if (parent.internalId() != 0 || parent.column() != 0) return 0;
    return static_cast<int>(groups_[static_cast<std::size_t>(parent.row())].size()) - 1;
  }
  int columnCount(const QModelIndex&) const override { return columns; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    const auto row = static_cast<std::size_t>(index.row());
    const bool isGroup = index.internalId() == 0;
    const Cells* const cells = isGroup ? groups_[row][0] : groups_[groupOf(index)][row + 1];
    return cells->texts[static_cast<std::size_t>(index.column())];
  }

 private:
  // As far apart as an index's row, times sixteen, can add to them: Qt hashes the sum, and a view
  // that keeps all indexes of equal sums, or of sums a power of two apart, takes minutes to forget
  // them.
  static constexpr int idBits = 10;
  static quintptr idOfChildren(int group) { return (static_cast<quintptr>(group) + 1) << idBits; }
  static std::size_t groupOf(const QModelIndex& child) {
    return (child.internalId() >> idBits) - 1;
  }

  std::vector<std::vector<const Cells*>> groups_;
};

// From the first item to the last, every seventh page painted at once: which of them, the turn
// decides, so that seven turns paint all items.
void scrollThrough(QTreeView& view, int turn) {
  constexpr int turns = 7;
  QScrollBar& bar = *view.verticalScrollBar();
  const int page = bar.pageStep();
  for (int place = turn % turns * page; place < bar.maximum(); place += turns * page) {
    bar.setValue(place);
    view.viewport()->repaint();
  }
}

void showFirst(QWidget& window) {
  window.show();
  QApplication::processEvents();
  window.repaint();
}

// A session with a table of that many common ranges, and the dialog's grid in a window.
class GridAtWork {
 public:
  explicit GridAtWork(std::int32_t items)
      : session_(database_.connectionString(), DatabaseAccess::rowByRow),
        grid_(makeQtTreeGrid(gridOf(mainDialogDescription()), &window_)),
        tree_(session_.session(), *grid_) {
    session_.table().copyFrom(commonTable(items));
    window_.resize(windowSize);
    grid_->widget()->resize(windowSize);
    fillGrid();
    cells_ = cellsOf(*grid_);
  }

  void fillGrid() { tree_.SyncDataWithControl({alleBuchungskreise, alleBenutzer}); }
  void fillStandardModel() {
    QStandardItemModel model;
    model.setColumnCount(columns);
    fill(model, cells_);
    benchmark::DoNotOptimize(model.rowCount());
  }

  void prepareGrid() {
    window_.hide();
    fillGrid();
  }
  void paintGrid() {
    showFirst(window_);
    scrollThrough(*qobject_cast<QTreeView*>(grid_->widget()), gridTurn_++);
  }

  void preparePlainView() {
    plainModel_ = std::make_unique<PlainModel>(cells_);
    plainView_ = std::make_unique<QTreeView>();
    plainView_->setUniformRowHeights(true);
    plainView_->setModel(plainModel_.get());
    for (int column = 0; column < columns; ++column)
      plainView_->setColumnHidden(column, column == 0 || column > grid_column::Maske);
    plainView_->resize(windowSize);
  }
  void paintPlainView() {
    plainView_->expandAll();
    showFirst(*plainView_);
    scrollThrough(*plainView_, plainTurn_++);
  }

 private:
  static constexpr QSize windowSize{700, 500};

  SampleDatabase database_{1};
  Session session_;
  QWidget window_;
  std::unique_ptr<QtTreeGrid> grid_;
  Tree tree_;
  std::vector<Cells> cells_;
  std::unique_ptr<PlainModel> plainModel_;
  std::unique_ptr<QTreeView> plainView_;
  int gridTurn_ = 0;
  int plainTurn_ = 0;
};

}  // namespace

void addGridCases(Comparisons& comparisons, const Scale& scale) {
  const std::int32_t items = scale.gridItems;
  const auto grid = lazily<GridAtWork>([items] { return std::make_unique<GridAtWork>(items); });
  const auto on = [&](void (GridAtWork::*work)(), void (GridAtWork::*prepare)() = nullptr) {
    return seconds([=] { ((**grid).*work)(); },
                   [=] {
                     GridAtWork& made = **grid;
                     if (prepare != nullptr) (made.*prepare)();
                   });
  };
  const std::string count = std::to_string(items) + " items";

  comparisons.push_back({"grid/fill", "grid, filled with " + count,
                         "filling a QStandardItemModel with the same cells", 0.2,
                         on(&GridAtWork::fillGrid), on(&GridAtWork::fillStandardModel)});
  comparisons.push_back({"grid/paint", "grid, painted first and scrolled through " + count,
                         "a QTreeView on a trivial model with the same texts", 1.3,
                         on(&GridAtWork::paintGrid, &GridAtWork::prepareGrid),
                         on(&GridAtWork::paintPlainView, &GridAtWork::preparePlainView)});
}

}  // namespace vexnumkr::bench
