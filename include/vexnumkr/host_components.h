// What the host application offers to the component besides its database: parts that the component
// creates by name, and the host's texts and message boxes.
//
// A host offers what it has: without any of it the dialog opens and saves all the same, with plain
// texts, standard boxes, and options that nobody keeps.
//
// Threads: everything is called on the host's user-interface thread, while ShowDialog or Init runs.
// Texts are UTF-8 in both directions.
// Failures: every member may raise vexnumkr::Error; the component reports it and goes on, but says
// nothing of the settings store's. What is of another type is told as error 51, std::bad_alloc as
// 7. Every member may release the component (see VXNummernkreise), or call it, which does nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/export.h>
#include <vexnumkr/value.h>

namespace vexnumkr {

/// The names under which the component asks for host components. A host that lacks one raises error
/// 429; only what needs that component does not work then.
namespace component_name {
inline constexpr const char* bookingCircles = "vxtComDlg.WWSDialog";
inline constexpr const char* settings = "VEXSetting.VXSettings";
}  // namespace component_name

/// Base of everything that HostComponents creates. The component owns what it has created and
/// releases it when the dialog that it was created for closes, before the connection that it was
/// given; destructors must not raise.
class VEXNUMKR_API HostComponent {
 public:
  virtual ~HostComponent() = default;

 protected:
  HostComponent() = default;
  HostComponent(const HostComponent&) = default;
  HostComponent& operator=(const HostComponent&) = default;
};

/// The host's booking-circle administration, "vxtComDlg.WWSDialog". It maintains the table
/// Nummernkreis_Buchungskreise on the connection that it is given. Created once each time the
/// dialog opens; what it leaves in the table is read again whenever it has been shown.
class VEXNUMKR_API BookingCircleDialog : public HostComponent {
 public:
  /// The connection to work on, inside whatever transaction runs on it, which is neither committed
  /// nor rolled back here: "Abbrechen" in the dialog takes changes of circles back as well. Set
  /// before Show.
  virtual void Connection(std::shared_ptr<vexnumkr::Connection> connection) = 0;
  /// Whether several circles may be selected at once; the component passes False. Set before Show.
  virtual void MultiSelect(bool on) = 0;
  /// Shows the administration of the booking circles of `origin` modally; returns when it is
  /// closed. `number` is the selection that the host's library knows; the component passes 27.
  virtual void Show(const std::string& origin, std::int32_t number) = 0;
};

/// The host's settings store, "VEXSetting.VXSettings", which keeps the options for follow-up
/// documents; the host reads them when it makes such documents. Created when the dialog for options
/// opens.
///
/// The keys are OnNewAN, OnNewAB, OnNewBS, OnANToAB, OnCopyAN and OnCopyAB, each "0" for the first
/// of its two options and "1" for the second. They are compared without regard to case: the
/// component writes them as ONNewAN and so on.
class VEXNUMKR_API SettingsStore : public HostComponent {
 public:
  /// Binds the store to a connection, which outlives it: one of its own, opened with the string of
  /// the host's, with no transaction on it. The component passes 0 first. Called once, before any
  /// setting is read or written; what it raises leaves the choices at their defaults.
  virtual void Init(std::int32_t reserved, Connection& connection) = 0;
  /// Delivers the stored text of `key` in `section` in `value`, or `defaultValue` where nothing is
  /// stored. The component asks for section "Buchungskreise" with profile and user "Standard", and
  /// with "0" as the default; a text that is neither "0" nor "1" leaves the first option chosen.
  virtual void GetSetting(const std::string& section, const std::string& key, std::string& value,
                          const std::string& profile, const std::string& user,
                          const std::string& defaultValue) = 0;
  /// Stores `value`, at once and outside of the dialog's transaction: it stays when the dialog is
  /// cancelled. After a failure the other settings are stored all the same.
  virtual void SaveSetting(const std::string& section, const std::string& key,
                           const std::string& value, const std::string& profile) = 0;
};

/// A picture as the host keeps it: the bytes of a PNG or SVG file. What cannot be read as one is
/// left out, and the dialog does without. An SVG stays sharp at any size and on any screen.
struct PictureData {
  std::string bytes;
};

/// The host's text catalogue, used for application code 1 and for the window's icon. Asked for anew
/// before each use, and used only before the next call to the host.
class VEXNUMKR_API HostTexts {
 public:
  virtual ~HostTexts() = default;
  /// The text `id` with its placeholders filled from `parameters` in order. The component asks for
  /// 10055, which says that a procedure has failed, with the name of that procedure.
  virtual std::string Text(std::int32_t id, const std::vector<Value>& parameters) = 0;
  /// The picture `id`; 267 is the main dialog's icon. One without bytes is none.
  virtual PictureData Picture(std::int32_t id) = 0;

 protected:
  HostTexts() = default;
  HostTexts(const HostTexts&) = default;
  HostTexts& operator=(const HostTexts&) = default;
};

/// The host's message facility, used for application code 1. Where it fails while it reports a
/// failure, a standard box reports it instead: users hear of every failure. Where it fails while it
/// asks, nothing has been answered, which is never taken for a yes.
class VEXNUMKR_API HostMessages {
 public:
  virtual ~HostMessages() = default;
  /// The number of the failure that Prepare and Show are about to report, for facilities that show
  /// it; called before Prepare.
  virtual void ErrorNumber(std::int32_t number) { static_cast<void>(number); }
  /// Announces what the next Show is about: before a failure is shown, its description. `kind` is 3
  /// then, and `third` is not given. What is returned is not used.
  virtual Value Prepare(const Value& text, std::int16_t kind,
                        const std::optional<Value>& third) = 0;
  /// Shows a box without an owner window and returns the code of the button pressed (1 OK, 2
  /// Cancel, 6 Yes, 7 No). `kind` is 3 for a failure and 4 for a question or information; `buttons`
  /// is the sum that message_box.h describes. A failure comes with the module in which it occurred
  /// as `source`, without a title, and with `flag` set; a question the other way round.
  virtual std::int32_t Show(const Value& text, std::int16_t kind,
                            const std::optional<Value>& source, std::int32_t buttons,
                            const std::optional<Value>& title, bool flag) = 0;

 protected:
  HostMessages() = default;
  HostMessages(const HostMessages&) = default;
  HostMessages& operator=(const HostMessages&) = default;
};

/// The host's side of the component, handed to the factory in component.h; it outlives the
/// component objects made with it. Several of them may share one.
class VEXNUMKR_API HostComponents {
 public:
  virtual ~HostComponents() = default;
  /// A new object of that name, of the class that belongs to it (see component_name). Error 429 for
  /// one that is not there; null and an object of another class are told as that too.
  virtual std::unique_ptr<HostComponent> CreateObject(const std::string& name) = 0;
  /// The text catalogue and the message facility, or null in a host without; owned by the host.
  virtual HostTexts* Texts() = 0;
  virtual HostMessages* Messages() = 0;

 protected:
  HostComponents() = default;
  HostComponents(const HostComponents&) = default;
  HostComponents& operator=(const HostComponents&) = default;
};

}  // namespace vexnumkr
