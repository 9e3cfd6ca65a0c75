// Entering the number and the description of a booking circle.
#pragma once

#include <QDialog>
#include <vector>

#include "app/components/booking_circles.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace vexnumkr::app {

/// Asks for one booking circle. OK is offered only while the entries are acceptable; once
/// something has been entered, the dialog says why they are not.
class BookingCircleEditor : public QDialog {
  Q_OBJECT

 public:
  /// For a new booking circle beside `present`.
  BookingCircleEditor(const std::vector<BookingCircle>& present, QWidget* parent);
  /// For another description of `circle`, whose number stays.
  BookingCircleEditor(const BookingCircle& circle, const std::vector<BookingCircle>& present,
                      QWidget* parent);

  /// What was entered, without blanks around it. REQUIRES: the dialog was accepted.
  BookingCircle entered() const;

 private:
  void build(const QString& title);
  QString refusal() const;
  void check();

  const std::vector<BookingCircle> present_;
  const bool isNew_;
  QLineEdit* number_;
  QLineEdit* description_;
  QLabel* hint_;
  QPushButton* ok_;
};

}  // namespace vexnumkr::app
