#include "adapters/qtforms/progress/progress_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include "adapters/qt/fonts.h"
#include "adapters/qt/text.h"
#include "platform/progress_display.h"

namespace vexnumkr::qtforms {
namespace {

constexpr int windowWidth = 320;
constexpr int windowMargin = 16;

QWidget* ownerWindow() {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : QApplication::activeWindow();
}

// It has a close button where that means something.
Qt::WindowFlags flagsFor(bool cancellable) {
  const Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                Qt::MSWindowsFixedSizeDialogHint | Qt::WindowDoesNotAcceptFocus;
  return cancellable ? flags | Qt::WindowCloseButtonHint : flags;
}

}  // namespace

ProgressWindow::ProgressWindow(const std::string& caption, bool cancellable)
    : QWidget(nullptr, flagsFor(cancellable)), owner_(ownerWindow()) {
  setObjectName(QStringLiteral("progress"));
  setWindowTitle(QStringLiteral("Nummernkreise"));
  setFont(formFont({"Tahoma"}));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_QuitOnClose, false);
  caption_.setObjectName(QStringLiteral("caption"));
  caption_.setText(toQt(caption));
  caption_.setTextFormat(Qt::PlainText);
  bar_.setObjectName(QStringLiteral("bar"));
  bar_.setAccessibleName(caption_.text());
  bar_.setRange(0, ProgressDisplay::full);
  bar_.setFormat(QStringLiteral("%p %"));
  auto* rows = new QVBoxLayout(this);  // owned by the window
  rows->setContentsMargins(windowMargin, windowMargin, windowMargin, windowMargin);
  rows->addWidget(&caption_);
  rows->addWidget(&bar_);
  cancel_.setObjectName(QStringLiteral("cancel"));
  cancel_.setText(QStringLiteral("Abbrechen"));
  cancel_.setAutoDefault(false);
  cancel_.setFocusPolicy(Qt::NoFocus);
  cancel_.setVisible(cancellable);
  connect(&cancel_, &QPushButton::clicked, this, &ProgressWindow::cancel);
  rows->addWidget(&cancel_, 0, Qt::AlignRight);
  setFixedSize(windowWidth, sizeHint().height());
  placeOverOwner();
}

ProgressWindow::~ProgressWindow() {
  if (isActiveWindow() && owner_) owner_->activateWindow();
}

void ProgressWindow::show(int thousandths) {
  bar_.setValue(thousandths);
  if (!isVisible()) QWidget::show();
}

void ProgressWindow::cancel() {
  isCancelled_ = true;
  cancel_.setEnabled(false);
}

// The work has to end first.
void ProgressWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!cancel_.isHidden()) cancel();
}

// The owner may go first, so it is none that deletes this.
void ProgressWindow::placeOverOwner() {
  const QRect area = owner_ ? owner_->frameGeometry() : screen()->availableGeometry();
  move(area.center() - rect().center());
  if (!owner_) return;
  setWindowIcon(owner_->windowIcon());
  create();
  windowHandle()->setTransientParent(owner_->windowHandle());
}

}  // namespace vexnumkr::qtforms
