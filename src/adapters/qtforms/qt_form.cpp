#include "adapters/qtforms/qt_form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

#include "adapters/qt/colours.h"
#include "adapters/qt/fonts.h"
#include "adapters/qt/guarded.h"
#include "adapters/qt/scroll_bar.h"
#include "adapters/qt/text.h"
#include "adapters/qt/units.h"
#include "adapters/qtforms/manual.h"
#include "adapters/qtforms/modal_owner.h"
#include "adapters/qtgrid/qt_tree_grid.h"

namespace vexnumkr::qtforms {
namespace {

constexpr std::int16_t closedByButton = 0;
constexpr std::int16_t closedByCode = 1;

// About what the window system puts around a window.
constexpr QSize windowFrame{16, 40};

Qt::WindowFlags windowFlagsOf(const FormDescription& description) {
  const Qt::WindowFlags dialog = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                 Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  return dialog |
         (description.resizable ? Qt::WindowMinMaxButtonsHint : Qt::MSWindowsFixedSizeDialogHint);
}

}  // namespace

QtForm::QtForm(const FormDescription& description, FormEvents& events, OpenWindows& windows,
               FormMemory& memory)
    : QDialog(nullptr, windowFlagsOf(description)),
      name_(description.name),
      events_(events),
      windows_(windows),
      memory_(memory),
      keys_(*this,
            [this](std::int16_t keyCode, std::int16_t shift) {
              if (keyCode == key_code::f1) openManual();
              guarded("Form_KeyDown", [&] { events_.Form_KeyDown(keyCode, shift); });
            }),
      content_(new QWidget(this)) {
  setUpWindow(description);
  controls_ = std::make_unique<ControlSet>(description.controls, *content_);
}

void QtForm::setUpWindow(const FormDescription& description) {
  setObjectName(toQt(description.name));
  setProperty("formName", toQt(description.name));
  setWindowTitle(toQt(description.caption));
  setAccessibleName(toQt(description.caption));
  setFont(formFont(description.font));
  makeSelectionsLegible();
  setWindowModality(Qt::ApplicationModal);
  // The host's application goes on when the form is closed.
  setAttribute(Qt::WA_QuitOnClose, false);
  knownSize_ = QSize(toPixels(description.width), toPixels(description.height));
  if (description.resizable) {
    setMinimumSize(toPixels(description.minimumWidth), toPixels(description.minimumHeight));
    resize(knownSize_);
    knownSize_ = size();
  } else {
    setFixedSize(knownSize_);
  }
  content_->resize(knownSize_);
}

// Those of the usual styles are too pale for small text.
void QtForm::makeSelectionsLegible() {
  const CellColours colours = selectionColours(QApplication::palette());
  QPalette own;
  own.setColor(QPalette::Highlight, colours.background);
  own.setColor(QPalette::HighlightedText, colours.text);
  setPalette(own);
}

void QtForm::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange) makeSelectionsLegible();
  QDialog::changeEvent(event);
}

std::string QtForm::Name() const { return name_; }

std::int32_t QtForm::ScaleWidth() const { return toTwips(content_->width()); }

std::int32_t QtForm::ScaleHeight() const { return toTwips(content_->height()); }

void QtForm::Icon(const PictureData& picture) {
  QPixmap pixmap;
  const auto* bytes = reinterpret_cast<const uchar*>(picture.bytes.data());
  if (pixmap.loadFromData(bytes, static_cast<uint>(picture.bytes.size()))) setWindowIcon(pixmap);
}

void QtForm::SetFont(const Font& font) { setFont(withFont(this->font(), font)); }

const std::vector<Control*>& QtForm::Controls() const { return controls_->inOrder(); }

Control* QtForm::FindControl(std::string_view name, int arrayIndex) const {
  return controls_->find(name, arrayIndex);
}

void QtForm::ShowModal() {
  if (state_ != State::Made || windows_.areClosed()) return;
  const OpenWindows::Entry entry(windows_, [this] { disappear(); });
  state_ = State::Loading;
  guarded("Form_Load", [this] { events_.Form_Load(); });
  if (state_ != State::Loading) return;

  const ModalOwner owner;
  if (!windows_.areClosed()) open(owner.window());
  if (isToRun()) loop_.exec(QEventLoop::DialogExec);
  if (isToRun()) pressCancel();  // the application ends
  if (state_ != State::Closed) {
    guarded("Form_Unload", [this] { events_.Form_Unload(); });
    finish();
  }
  setParent(nullptr, windowFlags());  // whoever owns this form deletes it, not its owner window
}

void QtForm::open(QWidget* owner) {
  state_ = State::Open;
  if (owner != nullptr) setParent(owner, windowFlags());
  QCoreApplication::instance()->installEventFilter(&keys_);
  const QSize designed = content_->size();
  if (isResizable()) {
    const QSize known = memory_.size(objectName());
    if (known.isValid()) resize(known.expandedTo(minimumSize()));
  }
  fitScreen(owner != nullptr ? *owner->screen() : *screen());
  QWidget* first = controls_->firstFocus();
  if (focusWidget() == nullptr && first != nullptr) first->setFocus(Qt::OtherFocusReason);
  show();
  activateWindow();
  guarded("Form_Shown", [this] { events_.Form_Shown(); });
  // Handlers lay out nothing before they know that the form is shown.
  if (content_->size() != designed) guarded("Form_Resize", [this] { events_.Form_Resize(); });
  recall();
}

bool QtForm::isResizable() const { return minimumSize() != maximumSize(); }

void QtForm::forEachGrid(const std::function<void(QtTreeGrid&)>& visit) const {
  for (Control* control : controls_->inOrder())
    if (auto* grid = dynamic_cast<QtTreeGrid*>(control)) visit(*grid);
}

// After the handlers have laid out the grids for the size of the window.
void QtForm::recall() {
  if (!memory_.keeps() || !isResizable()) return;
  forEachGrid([&](QtTreeGrid& grid) {
    guarded("recall", [&] { grid.look(memory_.look(objectName(), toQt(grid.Name()))); });
  });
}

void QtForm::keep() {
  if (!memory_.keeps() || !isResizable() || !isVisible()) return;
  if (!isMaximized() && area_ == nullptr) memory_.keepSize(objectName(), size());
  forEachGrid([&](QtTreeGrid& grid) {
    guarded("keep", [&] { memory_.keepLook(objectName(), toQt(grid.Name()), grid.look()); });
  });
}

void QtForm::fitScreen(const QScreen& screen) {
  const QSize room = screen.availableGeometry().size() - windowFrame;
  const QSize least = minimumSize();
  if (least.boundedTo(room) == least) return resize(size().boundedTo(room));
  scrollContent(least);
  const bool fixed = least == maximumSize();
  const QSize fitting = withScrollBars(least, room);
  fixed ? setFixedSize(fitting) : setMinimumSize(fitting);
  resize(size().boundedTo(room));
}

// A bar takes its room beside the content, where there is any.
QSize QtForm::withScrollBars(const QSize& content, const QSize& room) const {
  const QSize bars(area_->verticalScrollBar()->sizeHint().width(),
                   area_->horizontalScrollBar()->sizeHint().height());
  QSize wanted = content;
  if (content.height() > room.height()) wanted.rwidth() += bars.width();
  if (content.width() > room.width()) wanted.rheight() += bars.height();
  return wanted.boundedTo(room);
}

void QtForm::scrollContent(const QSize& least) {
  area_ = new QScrollArea(this);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setVerticalScrollBar(new ScrollBar(Qt::Vertical));
  area_->setHorizontalScrollBar(new ScrollBar(Qt::Horizontal));
  area_->setWidgetResizable(true);
  content_->setMinimumSize(least);
  area_->setWidget(content_);
  area_->setGeometry(rect());
  area_->show();
}

void QtForm::Unload() { tryUnload(closedByCode); }

void QtForm::tryUnload(std::int16_t mode) {
  if (unloading_ || (state_ != State::Loading && state_ != State::Open)) return;
  unloading_ = true;
  bool cancel = false;
  guarded("Form_QueryUnload", [&] { events_.Form_QueryUnload(cancel, mode); });
  if (!cancel) {
    guarded("Form_Unload", [this] { events_.Form_Unload(); });
    finish();
  }
  unloading_ = false;
}

void QtForm::finish() {
  keep();
  state_ = State::Closed;
  disappear();
}

void QtForm::disappear() {
  QCoreApplication::instance()->removeEventFilter(&keys_);
  closePopups(*this);
  hide();
  loop_.quit();
}

void QtForm::reject() { close(); }

void QtForm::closeEvent(QCloseEvent* event) {
  const bool mayAsk = state_ == State::Open && !unloading_ &&
                      QApplication::activeModalWidget() == this && controls_->edits().settle(true);
  if (mayAsk) tryUnload(closedByButton);
  event->setAccepted(state_ == State::Closed);
}

void QtForm::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (area_ != nullptr) {
    area_->resize(size());
  } else {
    content_->resize(size());
  }
  if (content_->size() == knownSize_) return;
  knownSize_ = content_->size();
  if (state_ == State::Open) guarded("Form_Resize", [this] { events_.Form_Resize(); });
}

void QtForm::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Cancel)) {
    QDialog::keyPressEvent(event);
    return;
  }
  event->accept();
  if (controls_->edits().areOpen()) {
    controls_->edits().settle(false);
  } else {
    pressCancel();
  }
}

void QtForm::pressCancel() {
  QPushButton* cancel = controls_->cancelButton();
  if (cancel != nullptr && cancel->isVisible() && cancel->isEnabled()) cancel->click();
}

}  // namespace vexnumkr::qtforms
