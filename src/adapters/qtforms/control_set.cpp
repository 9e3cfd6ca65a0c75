#include "adapters/qtforms/control_set.h"

#include <QFrame>
#include <QGroupBox>
#include <algorithm>

#include "adapters/qtforms/controls/button_control.h"
#include "adapters/qtforms/controls/check_list_control.h"
#include "adapters/qtforms/controls/combo_control.h"
#include "adapters/qtforms/controls/label_control.h"
#include "adapters/qtforms/controls/option_button_control.h"
#include "adapters/qtforms/controls/picture_holder_control.h"
#include "adapters/qtgrid/qt_tree_grid.h"

namespace vexnumkr::qtforms {
namespace {

using PlainFrame = WidgetControl<Frame, QFrame>;
using CaptionedFrame = WidgetControl<Frame, QGroupBox>;

QLatin1String nameOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
      return QLatin1String("Label");
    case ControlKind::Button:
      return QLatin1String("Button");
    case ControlKind::ComboBox:
      return QLatin1String("ComboBox");
    case ControlKind::CheckList:
      return QLatin1String("CheckList");
    case ControlKind::OptionButton:
      return QLatin1String("OptionButton");
    case ControlKind::Frame:
      return QLatin1String("Frame");
    case ControlKind::PictureHolder:
      return QLatin1String("PictureHolder");
    case ControlKind::TreeGrid:
      return QLatin1String("TreeGrid");
  }
  return {};
}

bool canHaveFocus(const QWidget* widget) { return !widget->isHidden() && widget->isEnabled(); }

}  // namespace

ControlSet::ControlSet(std::vector<ControlDescription> descriptions, QWidget& window)
    : descriptions_(std::move(descriptions)),
      window_(window),
      entries_(descriptions_.size(), Entry{nullptr, nullptr, nullptr}) {
  for (std::size_t order = 0; order < descriptions_.size(); ++order) {
    const Entry& entry = made(order);
    inOrder_.push_back(entry.control);
    mark(entry, order);
  }
  chainTabOrder();
  nameByLabels();
}

ControlSet::~ControlSet() {
  // A frame's widget would take the widgets in it along.
  while (!owned_.empty()) owned_.pop_back();
}

Control* ControlSet::find(std::string_view name, int arrayIndex) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.description->name == name && entry.description->arrayIndex == arrayIndex;
  });
  return found == entries_.end() ? nullptr : found->control;
}

QWidget* ControlSet::firstFocus() const {
  for (const auto* candidates : {&grids_, &tabOrder_}) {
    const auto found = std::find_if(candidates->begin(), candidates->end(), canHaveFocus);
    if (found != candidates->end()) return *found;
  }
  return nullptr;
}

ControlSet::Entry& ControlSet::made(std::size_t index) {
  const ControlDescription& description = descriptions_[index];
  if (entries_[index].control == nullptr) {
    entries_[index] = make(description, parentOf(description));
  }
  return entries_[index];
}

QWidget& ControlSet::parentOf(const ControlDescription& description) {
  if (description.parent.empty()) return window_;
  for (std::size_t index = 0; index < descriptions_.size(); ++index) {
    const ControlDescription& candidate = descriptions_[index];
    if (candidate.kind == ControlKind::Frame && candidate.name == description.parent) {
      return *made(index).widget;
    }
  }
  throw Error::objectNotSet();
}

ControlSet::Entry ControlSet::make(const ControlDescription& description, QWidget& parent) {
  switch (description.kind) {
    case ControlKind::Label:
      return adopt<LabelControl>(description, parent);
    case ControlKind::Button:
      return adopt<ButtonControl>(description, parent, edits_);
    case ControlKind::ComboBox:
      return adopt<ComboControl>(description, parent, edits_);
    case ControlKind::CheckList:
      return adopt<CheckListControl>(description, parent);
    case ControlKind::OptionButton:
      return adopt<OptionButtonControl>(description, parent);
    case ControlKind::Frame:
      return description.caption.empty() ? adopt<PlainFrame>(description, parent)
                                         : adopt<CaptionedFrame>(description, parent);
    case ControlKind::PictureHolder:
      return adopt<PictureHolderControl>(description, parent);
    case ControlKind::TreeGrid:
      return makeGrid(description, parent);
  }
  throw Error::objectNotSet();
}

template <class Made, class... Arguments>
ControlSet::Entry ControlSet::adopt(const ControlDescription& description, QWidget& parent,
                                    Arguments&... arguments) {
  auto control = std::make_unique<Made>(description, parent, arguments...);
  QWidget* widget = &control->widget();
  if (auto* group = qobject_cast<QGroupBox*>(widget)) group->setTitle(toQt(description.caption));
  if (description.role == ButtonRole::Cancel) cancelButton_ = qobject_cast<QPushButton*>(widget);
  owned_.push_back(std::move(control));
  return {&description, owned_.back().get(), widget};
}

ControlSet::Entry ControlSet::makeGrid(const ControlDescription& description, QWidget& parent) {
  auto grid = makeQtTreeGrid(description, &parent);
  QWidget* widget = grid->widget();
  edits_.watch(*grid);
  grids_.push_back(widget);
  owned_.push_back(std::move(grid));
  return {&description, owned_.back().get(), widget};
}

void ControlSet::mark(const Entry& entry, std::size_t order) {
  entry.widget->setProperty("controlOrder", static_cast<int>(order));
  entry.widget->setProperty("controlKind", nameOf(entry.description->kind));
  entry.widget->installEventFilter(&toolTips_);
}

void ControlSet::nameByLabels() {
  for (const Entry& label : entries_) {
    if (label.description->labelled.empty()) continue;
    const auto named = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
      return entry.description->name == label.description->labelled;
    });
    auto* caption = dynamic_cast<Caption*>(label.widget);
    if (named == entries_.end() || caption == nullptr) throw Error::objectNotSet();
    caption->standFor(*named->widget);
  }
}

void ControlSet::chainTabOrder() {
  std::vector<const Entry*> stops;
  for (const Entry& entry : entries_) {
    if (entry.description->tabIndex >= 0) stops.push_back(&entry);
  }
  std::stable_sort(stops.begin(), stops.end(), [](const Entry* left, const Entry* right) {
    return left->description->tabIndex < right->description->tabIndex;
  });
  for (const Entry* stop : stops) tabOrder_.push_back(stop->widget);
  for (std::size_t index = 1; index < tabOrder_.size(); ++index) {
    QWidget::setTabOrder(tabOrder_[index - 1], tabOrder_[index]);
  }
}

}  // namespace vexnumkr::qtforms
