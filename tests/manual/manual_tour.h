// The tours that make the pictures of the users' manual.
#pragma once

#include <QRect>
#include <QString>
#include <iosfwd>
#include <string>

#include "app/tour/guided_tour.h"

namespace vexnumkr::app {

/// Goes through everything that the manual shows of application 1, and saves its pictures. Nothing
/// is stored in the database.
class ManualTour : public GuidedTour {
 public:
  /// Pictures go to `folder`, which is there.
  ManualTour(const std::string& folder, std::ostream& narration);

  /// Whether every picture could be saved.
  bool saved() const { return saved_; }

 protected:
  void plan(QWidget& dialog) override;

  /// Photographs the window with a frame and its title.
  void picture(const char* window, const QString& name);
  /// Photographs the upper part of the main dialog, `lines` lines of its grid.
  void upperPart(const QString& name, int lines);
  void press(const char* window, const char* button);

 private:
  void planViews();
  void planEditing();
  void planBookingCircles();
  void planSaving();
  void planHints();
  void choose(const char* combo, int entry);
  void save(const QImage& image, const QString& name);

  const QString folder_;
  bool saved_ = true;
};

/// The same of application 2, as far as it differs.
class ManualTourOfOptions : public ManualTour {
 public:
  using ManualTour::ManualTour;

 protected:
  void plan(QWidget& dialog) override;
};

}  // namespace vexnumkr::app
