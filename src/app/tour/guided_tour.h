// The guided tour through the dialogs.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <deque>
#include <functional>
#include <iosfwd>
#include <string>

class QWidget;

namespace vexnumkr::app {

/// Works the dialogs by key presses and clicks while they run modally, and saves a picture of each
/// step. It ends by pressing "Abbrechen", so nothing is stored.
///
/// A window that is not part of the tour, such as the box of a failure, is photographed and closed,
/// and counts as a failure of the tour; so does a window that does not appear.
class GuidedTour : public QObject {
  Q_OBJECT

 public:
  /// Pictures go to `folder`, which is made where it is missing. What the tour does is told on
  /// `narration` (German), which outlives it. Error 75 when the folder cannot be made.
  GuidedTour(const std::string& folder, std::ostream& narration);
  ~GuidedTour() override;

  /// Takes the dialog that is shown next through the tour. REQUIRES: its event loop is started
  /// soon.
  void start();

  /// To be called when the dialog is closed: whether the tour went as planned.
  bool finish();

 protected:
  /// Plans the steps; called once, when the first dialog is up. Derived tours plan their own.
  virtual void plan(QWidget& dialog);
  /// Adds a step: `act` runs in the window of that name once it is in front. An Error ends the
  /// tour.
  void then(const char* window, std::function<void(QWidget&)> act);

 private:
  struct Step {
    const char* window;
    std::function<void(QWidget&)> act;
  };

  void scheduleTick();
  void tick();
  void runNextStep(QWidget& window);
  void leave(QWidget& window, const std::string& why);

  void planFilters();
  void planEntry();
  void planTicks();
  void planSideDialogs(QWidget& dialog);
  void look(const char* window, const std::string& name, const std::string& text);
  void photograph(QWidget& window, const std::string& name, const std::string& text);

  const std::string folder_;
  std::ostream& narration_;
  std::deque<Step> steps_;
  QElapsedTimer waiting_;
  int pictures_ = 0;
  bool failed_ = false;
};

}  // namespace vexnumkr::app
