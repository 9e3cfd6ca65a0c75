// A modal form as a Qt dialog.
#pragma once

#include <QDialog>
#include <QEventLoop>
#include <functional>
#include <memory>
#include <string>

#include "adapters/qtforms/control_set.h"
#include "adapters/qtforms/form_keys.h"
#include "adapters/qtforms/form_memory.h"
#include "adapters/qtforms/open_windows.h"
#include "platform/forms.h"

class QScreen;
class QScrollArea;

namespace vexnumkr::qtforms {

/// The window of a form and its life: made, loading, open, closed. It is shown once.
///
/// While the close of the window is being decided, or a modal window stands above it, a further
/// wish to close it is ignored; so is one before ShowModal and after the close. Unload during
/// Form_Load closes the form before it is ever seen.
///
/// Escape drops the text of an open edit, wherever the focus is; without one it presses the cancel
/// button. An application that ends while the form is open presses that too, and then closes it.
///
/// A form that is larger than its screen is shown smaller and scrolls. One that can be resized
/// comes up as it was left, its grids too. F1 opens the manual.
///
/// Closed together with others (OpenWindows) it asks nobody; it is unloaded when the handlers that
/// run in it have returned.
class QtForm final : public QDialog, public Form {
 public:
  /// All but the description are borrowed and outlive this.
  QtForm(const FormDescription& description, FormEvents& events, OpenWindows& windows,
         FormMemory& memory);

  std::string Name() const override;
  std::int32_t ScaleWidth() const override;
  std::int32_t ScaleHeight() const override;
  /// Bytes that are no picture leave the icon as it was.
  void Icon(const PictureData& picture) override;
  void SetFont(const Font& font) override;
  const std::vector<Control*>& Controls() const override;
  Control* FindControl(std::string_view name, int arrayIndex) const override;
  void ShowModal() override;
  void Unload() override;

  /// Closes the window as its close button does.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  enum class State { Made, Loading, Open, Closed };

  void setUpWindow(const FormDescription& description);
  void makeSelectionsLegible();
  void open(QWidget* owner);
  bool isResizable() const;
  void forEachGrid(const std::function<void(QtTreeGrid&)>& visit) const;
  void recall();
  void keep();
  void fitScreen(const QScreen& screen);
  void scrollContent(const QSize& least);
  QSize withScrollBars(const QSize& content, const QSize& room) const;
  void tryUnload(std::int16_t mode);
  void finish();
  void disappear();
  bool isToRun() const { return state_ == State::Open && !windows_.areClosed(); }
  void pressCancel();

  std::string name_;
  FormEvents& events_;
  OpenWindows& windows_;
  FormMemory& memory_;
  FormKeys keys_;
  QWidget* const content_;       // holds the controls; owned by this widget, as every child
  QScrollArea* area_ = nullptr;  // around the content, where the screen is too small; likewise
  std::unique_ptr<ControlSet> controls_;
  QEventLoop loop_;
  QSize knownSize_;  // of the content
  State state_ = State::Made;
  bool unloading_ = false;
};

}  // namespace vexnumkr::qtforms
