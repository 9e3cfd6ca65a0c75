// The window of the booking-circle administration.
#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

#include "app/components/booking_circles.h"

class QLabel;
class QPushButton;
class QTreeWidget;

namespace vexnumkr::app {

/// Lists the booking circles of one origin and lets the user add, rename and remove them. Every
/// change is a statement of its own; one that fails is reported in a box, and the list stays as the
/// database has it.
class BookingCircleWindow : public QDialog {
  Q_OBJECT

 public:
  /// Reads the list. Errors: the engine's.
  BookingCircleWindow(BookingCircles circles, bool multiSelect, QWidget* parent);

 private:
  void build(bool multiSelect);
  void connectControls();
  void refresh();
  void showCircles(std::int32_t current);
  void fitColumns();
  /// The line of that number, or else of the next higher, or else the last.
  int lineFor(std::int32_t number) const;
  void enableButtons();
  std::vector<std::int32_t> selectedNumbers() const;
  /// REQUIRES: that number is listed.
  const BookingCircle& listed(std::int32_t number) const;

  void addCircle();
  void renameCircle();
  void removeCircles();
  bool confirmRemoval(std::int32_t number);
  /// Whether the user says yes; Enter, Escape and the close button say no.
  bool confirm(const QString& title, const QString& prompt);
  /// Runs `change`, then reads the list again and makes `current` the current line.
  void apply(const std::function<void()>& change, std::int32_t current);

  BookingCircles circles_;
  std::vector<BookingCircle> present_;
  QTreeWidget* list_;
  QLabel* hint_;
  QPushButton* add_;
  QPushButton* rename_;
  QPushButton* remove_;
  QPushButton* close_;
};

}  // namespace vexnumkr::app
