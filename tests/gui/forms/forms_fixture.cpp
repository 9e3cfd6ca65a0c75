#include "gui/forms/forms_fixture.h"

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <stdexcept>
#include <utility>

#include "adapters/qtforms/qt_forms_toolkit.h"

namespace vexnumkr::test {
namespace {

constexpr int patience = 60'000;  // milliseconds; a busy machine is no failure

}  // namespace

void RecordingEvents::Form_Load() {
  log_->push_back("Load");
  if (onLoad) onLoad();
}

void RecordingEvents::Form_Shown() {
  log_->push_back("Shown");
  if (onShown) onShown();
}

void RecordingEvents::Form_QueryUnload(bool& Cancel, std::int16_t UnloadMode) {
  log_->push_back("QueryUnload " + std::to_string(UnloadMode));
  if (onQueryUnload) onQueryUnload(Cancel);
}

void RecordingEvents::Form_Unload() {
  log_->push_back("Unload");
  if (onUnload) onUnload();
}

void RecordingEvents::Form_KeyDown(std::int16_t KeyCode, std::int16_t Shift) {
  log_->push_back("KeyDown " + std::to_string(KeyCode) + " " + std::to_string(Shift));
  if (onKeyDown) onKeyDown(KeyCode, Shift);
}

void RecordingEvents::Form_Resize() {
  log_->push_back("Resize");
  if (onResize) onResize();
}

BoxAnswers::BoxAnswers() { qApp->installEventFilter(this); }

BoxAnswers::~BoxAnswers() { EXPECT_TRUE(pending_.empty()) << "a message box did not come"; }

void BoxAnswers::expect(const std::string& button, std::function<void(QDialog& box)> look) {
  pending_.push_back([button, look = std::move(look)](QDialog& box) {
    if (look) look(box);
    auto* pressed = box.findChild<QPushButton*>(QString::fromStdString(button));
    if (pressed == nullptr) {
      ADD_FAILURE() << "the box has no button " << button;
      box.done(0);
      return;
    }
    QTest::mouseClick(pressed, Qt::LeftButton);
  });
}

void BoxAnswers::expectAndAct(std::function<void(QDialog& box)> act) {
  pending_.push_back(std::move(act));
}

bool BoxAnswers::eventFilter(QObject* receiver, QEvent* event) {
  auto* box = qobject_cast<QMessageBox*>(receiver);
  if (box != nullptr && event->type() == QEvent::Show) {
    QTimer::singleShot(0, box, [this, box] { answer(*box); });
  }
  return false;
}

void BoxAnswers::answer(QDialog& box) {
  if (pending_.empty()) {
    ADD_FAILURE() << "unexpected box: " << box.property("prompt").toString().toStdString();
    box.done(0);
    return;
  }
  const auto act = pending_.front();
  pending_.erase(pending_.begin());
  act(box);
}

ControlDescription described(ControlKind kind, const std::string& name, const Rect& position,
                             const std::string& caption, int tabIndex) {
  ControlDescription result;
  result.kind = kind;
  result.name = name;
  result.caption = caption;
  result.position = position;
  result.tabIndex = tabIndex;
  return result;
}

ControlDescription button(const std::string& name, const Rect& position, const std::string& caption,
                          int tabIndex, ButtonRole role) {
  ControlDescription result = described(ControlKind::Button, name, position, caption, tabIndex);
  result.role = role;
  return result;
}

void click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }

FormsTest::FormsTest() : toolkit(makeQtFormsToolkit()) {}

FormsTest::~FormsTest() = default;

FormDescription FormsTest::formDescription(std::vector<ControlDescription> controls) {
  FormDescription result;
  result.name = "frmProbe";
  result.caption = "Probe";
  result.width = 4500;
  result.height = 3000;
  result.font.name = "Tahoma";
  result.controls = std::move(controls);
  return result;
}

void FormsTest::make(std::vector<ControlDescription> controls) {
  make(formDescription(std::move(controls)));
}

void FormsTest::make(const FormDescription& description) {
  form = toolkit->createForm(description, events);
}

void FormsTest::show(std::function<void()> steps) {
  const auto before = std::exchange(events.onShown, [&] {
    QTimer::singleShot(0, &window(), [&] {
      waitUntilActive();
      steps();
      events.onQueryUnload = {};
      form->Unload();
    });
  });
  form->ShowModal();
  events.onShown = before;
}

void FormsTest::waitUntilActive() const {
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window(), patience));
}

QDialog& FormsTest::window() const { return dynamic_cast<QDialog&>(*form); }

QWidget& FormsTest::widget(const char* name) const {
  auto* found = window().findChild<QWidget*>(QString::fromUtf8(name));
  if (found == nullptr) throw std::runtime_error(std::string("no widget ") + name);
  return *found;
}

}  // namespace vexnumkr::test
