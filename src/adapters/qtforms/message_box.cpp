#include "adapters/qtforms/message_box.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <vector>

#include "adapters/qt/fonts.h"
#include "adapters/qt/text.h"
#include "adapters/qtforms/modal_owner.h"
#include "adapters/qtforms/open_windows.h"
#include "platform/forms.h"

namespace vexnumkr::qtforms {
namespace {

constexpr std::int32_t buttonBits = 0x0F;
constexpr std::int32_t iconBits = 0xF0;
constexpr std::int32_t defaultBits = 0x300;
constexpr std::int32_t secondButtonDefault = 0x100;
constexpr int longestLine = 75;  // in characters of the usual width
constexpr int breakingWidth = 500;

struct Choice {
  std::int32_t code;
  QLatin1String name;
  QLatin1String caption;
  QMessageBox::ButtonRole role;
  Qt::Key key;  ///< chooses it together with Alt, or alone
};

const Choice okChoice{msg_box::ok, QLatin1String("ok"), QLatin1String("OK"),
                      QMessageBox::AcceptRole, Qt::Key_O};
const Choice cancelChoice{msg_box::cancel, QLatin1String("cancel"), QLatin1String("Abbrechen"),
                          QMessageBox::RejectRole, Qt::Key_A};
const Choice yesChoice{msg_box::yes, QLatin1String("yes"), QLatin1String("Ja"),
                       QMessageBox::YesRole, Qt::Key_J};
const Choice noChoice{msg_box::no, QLatin1String("no"), QLatin1String("Nein"), QMessageBox::NoRole,
                      Qt::Key_N};

std::vector<Choice> choicesOf(std::int32_t style) {
  switch (style & buttonBits) {
    case 1:
      return {okChoice, cancelChoice};
    case 3:
      return {yesChoice, noChoice, cancelChoice};
    case 4:
      return {yesChoice, noChoice};
    default:
      return {okChoice};
  }
}

QMessageBox::Icon iconOf(std::int32_t style) {
  switch (style & iconBits) {
    case 16:
      return QMessageBox::Critical;
    case 32:
      return QMessageBox::Question;
    case 48:
      return QMessageBox::Warning;
    case 64:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

// The place of the button that Enter presses; the first one's where the style names none there is.
std::size_t defaultPlace(std::int32_t style, std::size_t buttons) {
  const auto place = static_cast<std::size_t>((style & defaultBits) / secondButtonDefault);
  return place < buttons ? place : 0;
}

class Box final : public QMessageBox {
 public:
  Box(const std::string& prompt, std::int32_t style, const std::string& title, QWidget* owner)
      : QMessageBox(owner) {
    setObjectName(QStringLiteral("msgBox"));
    setProperty("buttons", style);
    setProperty("prompt", toQt(prompt));
    // The host's application goes on when the last box is closed.
    setAttribute(Qt::WA_QuitOnClose, false);
    setFont(owner != nullptr ? owner->font() : formFont({"Tahoma"}));
    setTextFormat(Qt::PlainText);
    setText(toQtLines(prompt));
    setWindowTitle(toQt(title));
    setIcon(iconOf(style));
    for (const Choice& choice : choicesOf(style)) add(choice);
    setDefaultButton(answers_[defaultPlace(style, answers_.size())].button);
    setWindowFlag(Qt::CustomizeWindowHint);
    setWindowFlag(Qt::WindowCloseButtonHint, closable());
  }

  std::int32_t ask() {
    exec();
    for (const Answer& answer : answers_) {
      if (answer.button == clickedButton()) return answer.code;
    }
    return answers_.back().code;
  }

 protected:
  void showEvent(QShowEvent* event) override {
    letLinesStand();
    QMessageBox::showEvent(event);
  }

  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::Cancel) && !closable()) {
      event->accept();
    } else {
      QMessageBox::keyPressEvent(event);
    }
  }

  void closeEvent(QCloseEvent* event) override {
    if (closable()) {
      QMessageBox::closeEvent(event);
    } else {
      event->ignore();
    }
  }

 private:
  struct Answer {
    QPushButton* button;
    std::int32_t code;
  };

  // Left to itself the box breaks lines that have room, often ahead of their last word. It breaks
  // none while it is narrower than `breakingWidth`, so a label with a line to be broken is wider.
  void letLinesStand() {
    auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (label == nullptr) return;
    int widest = 0;
    for (const QString& line : text().split(QLatin1Char('\n'))) {
      widest = std::max(widest, fontMetrics().horizontalAdvance(line) + 1);
    }
    const int most = std::max(longestLine * fontMetrics().averageCharWidth(), breakingWidth);
    label->setMinimumWidth(std::min({widest, most, screen()->availableGeometry().width() / 2}));
  }

  void add(const Choice& choice) {
    QPushButton* button = addButton(choice.caption, choice.role);
    button->setObjectName(choice.name);
    button->setShortcut(QKeySequence(Qt::ALT | choice.key));
    answers_.push_back({button, choice.code});
    if (choice.code == msg_box::ok || choice.code == msg_box::cancel) setEscapeButton(button);
  }

  bool closable() const { return escapeButton() != nullptr; }

  std::vector<Answer> answers_;
};

}  // namespace

std::int32_t showMessageBox(const std::string& prompt, std::int32_t style,
                            const std::string& title) {
  OpenWindows alone;
  return showMessageBox(prompt, style, title, alone);
}

std::int32_t showMessageBox(const std::string& prompt, std::int32_t style, const std::string& title,
                            OpenWindows& windows) {
  if (windows.areClosed()) return 0;
  const ModalOwner owner;
  Box box(prompt, style, title, owner.window());
  const OpenWindows::Entry entry(windows, [&box] { box.done(0); });
  const std::int32_t answer = box.ask();
  return windows.areClosed() ? 0 : answer;
}

}  // namespace vexnumkr::qtforms
