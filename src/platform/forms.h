// The forms toolkit as the dialogs use it: modal forms built from a description, their controls by
// kind, message boxes and the mouse pointer.
//
// Positions and sizes are in twips: 1440 to the inch, 15 to the pixel at 96 dots per inch.
// Threads: everything happens on the host's user-interface thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <vexnumkr/error.h>
#include <vexnumkr/host_components.h>

namespace vexnumkr {

struct Rect {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
};

/// A font by name; a size of 0 (points) is the default size.
struct Font {
  std::string name;
  double size = 0;
  bool bold = false;
};

/// Stands for a picture that a picture holder keeps; comparable, 0 is none.
using PictureHandle = std::uint32_t;
inline constexpr PictureHandle noPicture = 0;

/// Key codes that the dialogs look at.
namespace key_code {
inline constexpr std::int16_t tab = 9;
inline constexpr std::int16_t enter = 13;
inline constexpr std::int16_t escape = 27;
inline constexpr std::int16_t space = 32;
inline constexpr std::int16_t left = 37;
inline constexpr std::int16_t right = 39;
inline constexpr std::int16_t f1 = 112;
inline constexpr std::int16_t f2 = 113;
inline constexpr std::int16_t f7 = 118;
inline constexpr std::int16_t f8 = 119;
inline constexpr std::int16_t f9 = 120;
inline constexpr std::int16_t f10 = 121;
}  // namespace key_code

/// Modifier states, added up.
namespace key_shift {
inline constexpr std::int16_t none = 0;
inline constexpr std::int16_t shift = 1;
inline constexpr std::int16_t ctrl = 2;
inline constexpr std::int16_t alt = 4;
}  // namespace key_shift

/// Message-box styles and answers.
namespace msg_box {
inline constexpr std::int32_t okOnly = 0;
inline constexpr std::int32_t yesNoCancel = 3;
inline constexpr std::int32_t yesNo = 4;
inline constexpr std::int32_t question = 32;
inline constexpr std::int32_t exclamation = 48;
inline constexpr std::int32_t ok = 1;
inline constexpr std::int32_t cancel = 2;
inline constexpr std::int32_t yes = 6;
inline constexpr std::int32_t no = 7;
}  // namespace msg_box

/// What every control offers.
class Control {
 public:
  virtual ~Control() = default;
  virtual std::string Name() const = 0;
  virtual bool Visible() const = 0;
  virtual void Visible(bool visible) = 0;
  virtual Rect Position() const = 0;
  virtual void Position(const Rect& position) = 0;
  /// Assigning a font without a size keeps the control's size.
  virtual void SetFont(const Font& font) = 0;
  virtual void ToolTipText(const std::string& text) = 0;

 protected:
  Control() = default;
  Control(const Control&) = default;
  Control& operator=(const Control&) = default;
};

class Label : public Control {};

class Frame : public Control {};

class Button : public Control {
 public:
  virtual void OnClick(std::function<void()> handler) = 0;
};

/// A drop-down list of texts.
class ComboBox : public Control {
 public:
  virtual void Clear() = 0;
  virtual void AddItem(const std::string& text) = 0;
  virtual std::int32_t ListCount() const = 0;
  /// The text of an entry. Error 380 for one that does not exist.
  virtual std::string List(std::int32_t index) const = 0;
  /// The chosen entry, -1 for none. Setting another one than the chosen raises the click event; one
  /// that does not exist: error 380.
  virtual std::int32_t ListIndex() const = 0;
  virtual void ListIndex(std::int32_t index) = 0;
  /// The shown text, "" for none. Setting chooses the first entry with that text; none: error 380.
  virtual std::string Text() const = 0;
  virtual void Text(const std::string& text) = 0;
  /// Chooses an entry, or none (-1), without a click event.
  virtual void SelectSilently(std::int32_t index) = 0;
  virtual void OnClick(std::function<void()> handler) = 0;
};

/// A list whose entries have check boxes.
class CheckList : public Control {
 public:
  virtual void AddItem(const std::string& text) = 0;
  virtual std::int32_t ListCount() const = 0;
  /// Whether the entry is ticked. Error 380 for one that does not exist.
  virtual bool Selected(std::int32_t index) const = 0;
  virtual void Selected(std::int32_t index, bool selected) = 0;
};

/// One of a group; the buttons of one parent frame exclude each other.
class OptionButton : public Control {
 public:
  virtual bool Value() const = 0;
  virtual void Value(bool selected) = 0;
};

/// Keeps a picture for use elsewhere; never shown itself.
class PictureHolder : public Control {
 public:
  virtual PictureHandle Picture() const = 0;
};

enum class ControlKind {
  Label,
  Button,
  ComboBox,
  CheckList,
  OptionButton,
  Frame,
  PictureHolder,
  TreeGrid
};

enum class ButtonRole { None, Default, Cancel };

/// What a picture holder holds.
enum class PictureKind {
  None,
  CellButton,
  CheckedBox,
  UncheckedBox,
  OptionOn,
  OptionOff,
  NotFound
};

enum class Alignment { Left, Right };

/// A column of a tree grid.
struct ColumnDescription {
  std::string header;
  double width = 0;  ///< in grid units; 0 hides the column
  Alignment alignment = Alignment::Left;
  bool editable = false;  ///< whether its cells take entries at all
};

struct ControlDescription {
  ControlKind kind = ControlKind::Label;
  std::string name;
  std::string caption;
  Rect position;
  bool visible = true;
  /// Place in the tab order, from 0; -1 for controls that never have the focus.
  int tabIndex = -1;
  ButtonRole role = ButtonRole::None;
  PictureKind picture = PictureKind::None;
  /// Place in a control array, whose members share `name`; -1 for a control of its own.
  int arrayIndex = -1;
  /// The frame that this control stands in (its position is relative to it); empty for the form.
  std::string parent;
  /// Of a label: the control of the form that it names; empty for none.
  std::string labelled;
  /// The letter of the caption that presses a button, or goes to the control that a label names,
  /// together with Alt; 0 for none. It is underlined, the caption stays as it is.
  char accessKey = 0;
  /// What assistive technology calls the control; its caption where empty.
  std::string accessibleName;
  std::vector<ColumnDescription> columns;  ///< of a tree grid, from column 0
};

struct FormDescription {
  std::string name;
  std::string caption;
  std::int32_t width = 0;   ///< of the inner area
  std::int32_t height = 0;  ///< of the inner area
  Font font;
  bool resizable = false;
  std::int32_t minimumWidth = 0;
  std::int32_t minimumHeight = 0;
  /// In control order.
  std::vector<ControlDescription> controls;
};

/// What a form tells its class, which overrides what concerns it.
class FormEvents {
 public:
  virtual ~FormEvents() = default;
  /// Once, before the form is first seen.
  virtual void Form_Load() = 0;
  /// Once, when the window is up.
  virtual void Form_Shown() {}
  /// Before closing; setting `Cancel` keeps the form open. `UnloadMode` is 0 for the window's close
  /// button and 1 for Unload called by code.
  virtual void Form_QueryUnload(bool& /*Cancel*/, std::int16_t /*UnloadMode*/) {}
  virtual void Form_Unload() = 0;
  /// Every key pressed in the form, before the control that has the focus sees it.
  virtual void Form_KeyDown(std::int16_t /*KeyCode*/, std::int16_t /*Shift*/) {}
  /// The inner size has changed.
  virtual void Form_Resize() {}

 protected:
  FormEvents() = default;
  FormEvents(const FormEvents&) = default;
  FormEvents& operator=(const FormEvents&) = default;
};

/// A window with controls.
class Form {
 public:
  virtual ~Form() = default;
  virtual std::string Name() const = 0;
  /// The inner size.
  virtual std::int32_t ScaleWidth() const = 0;
  virtual std::int32_t ScaleHeight() const = 0;
  virtual void Icon(const PictureData& picture) = 0;
  virtual void SetFont(const Font& font) = 0;

  /// The controls in control order; owned by the form.
  virtual const std::vector<Control*>& Controls() const = 0;
  /// The control of that name and place in its array, or null.
  virtual Control* FindControl(std::string_view name, int arrayIndex = -1) const = 0;

  /// Raises Form_Load, shows the form modally, raises Form_Shown and returns when it is closed.
  virtual void ShowModal() = 0;
  /// Raises Form_QueryUnload and, unless that cancels, Form_Unload, then closes the window.
  virtual void Unload() = 0;

  /// The control of that name as kind C. Error 91 where the form has none of that name and kind.
  template <class C>
  C& control(std::string_view name, int arrayIndex = -1) const {
    auto* found = dynamic_cast<C*>(FindControl(name, arrayIndex));
    if (found == nullptr) throw Error::objectNotSet();
    return *found;
  }

 protected:
  Form() = default;
  Form(const Form&) = default;
  Form& operator=(const Form&) = default;
};

enum class MousePointer { Default, Hourglass };

/// Makes forms and everything else that a user sees.
class FormsToolkit {
 public:
  virtual ~FormsToolkit() = default;
  /// A new form, not shown yet. `events` is borrowed and outlives the form.
  virtual std::unique_ptr<Form> createForm(const FormDescription& description,
                                           FormEvents& events) = 0;
  /// A standard message box; returns the code of the button pressed (see msg_box).
  virtual std::int32_t MsgBox(const std::string& prompt, std::int32_t buttons,
                              const std::string& title) = 0;
  virtual void SetMousePointer(MousePointer pointer) = 0;
  /// Lets the pending window messages be processed once; no user input among them.
  virtual void DoEvents() = 0;
  /// Closes all forms and boxes without asking, the newest first: the window goes now, and what has
  /// shown it returns once the handlers running in it have. A form raises Form_Unload then, and a
  /// box is answered with 0. Whatever is to be shown afterwards is not, and
  /// not loaded either.
  virtual void closeAll() noexcept = 0;

 protected:
  FormsToolkit() = default;
  FormsToolkit(const FormsToolkit&) = default;
  FormsToolkit& operator=(const FormsToolkit&) = default;
};

}  // namespace vexnumkr
