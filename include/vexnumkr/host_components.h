// What the host application offers to the component besides its database: parts that the component
// creates by name, and the host's texts and message boxes.
//
// Threads: everything is called on the host's user-interface thread.
// Failures: every member may raise vexnumkr::Error; the component reports it and goes on. What is
// of another type is told as error 51, std::bad_alloc as error 7. Every member may release the
// component (see VXNummernkreise), and call it, which does nothing.
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
/// releases it when its dialog closes; destructors must not raise.
class VEXNUMKR_API HostComponent {
 public:
  virtual ~HostComponent() = default;

 protected:
  HostComponent() = default;
  HostComponent(const HostComponent&) = default;
  HostComponent& operator=(const HostComponent&) = default;
};

/// The host's booking-circle administration, "vxtComDlg.WWSDialog". It maintains the table
/// Nummernkreis_Buchungskreise on the connection that it is given.
class VEXNUMKR_API BookingCircleDialog : public HostComponent {
 public:
  /// The connection to work on, inside whatever transaction runs on it. Set before Show.
  virtual void Connection(std::shared_ptr<vexnumkr::Connection> connection) = 0;
  /// Whether several circles may be selected at once; the component passes False. Set before Show.
  virtual void MultiSelect(bool on) = 0;
  /// Shows the administration of the booking circles of `origin` modally; returns when it is
  /// closed. `number` is the selection that the host's library knows; the component passes 27.
  virtual void Show(const std::string& origin, std::int32_t number) = 0;
};

/// The host's settings store, "VEXSetting.VXSettings". Keys are compared without regard to case.
class VEXNUMKR_API SettingsStore : public HostComponent {
 public:
  /// Binds the store to a connection, which outlives it. The component passes 0 first. Called once,
  /// before any setting is read or written; what it raises leaves the choices at their defaults.
  virtual void Init(std::int32_t reserved, Connection& connection) = 0;
  /// Delivers the stored text of `key` in `section` in `value`, or `defaultValue` where nothing is
  /// stored. The component asks for section "Buchungskreise" with profile and user "Standard".
  virtual void GetSetting(const std::string& section, const std::string& key, std::string& value,
                          const std::string& profile, const std::string& user,
                          const std::string& defaultValue) = 0;
  /// Stores `value`, at once and outside of the dialog's transaction: it stays when the dialog is
  /// cancelled.
  virtual void SaveSetting(const std::string& section, const std::string& key,
                           const std::string& value, const std::string& profile) = 0;
};

/// A picture as the host keeps it: the bytes of a PNG or SVG file. What cannot be read as one is
/// left out, and the dialog does without.
struct PictureData {
  std::string bytes;
};

/// The host's text catalogue, used for application code 1 and for the window's icon.
class VEXNUMKR_API HostTexts {
 public:
  virtual ~HostTexts() = default;
  /// The text `id` with its placeholders filled from `parameters` in order.
  virtual std::string Text(std::int32_t id, const std::vector<Value>& parameters) = 0;
  /// The picture `id`; 267 is the main dialog's icon. One without bytes is none.
  virtual PictureData Picture(std::int32_t id) = 0;

 protected:
  HostTexts() = default;
  HostTexts(const HostTexts&) = default;
  HostTexts& operator=(const HostTexts&) = default;
};

/// The host's message facility, used for application code 1.
class VEXNUMKR_API HostMessages {
 public:
  virtual ~HostMessages() = default;
  /// The number of the failure that Prepare and Show are about to report, for facilities that show
  /// it; called before Prepare.
  virtual void ErrorNumber(std::int32_t number) { static_cast<void>(number); }
  /// Announces what the next Show is about. `kind` is 3 for a failure.
  virtual Value Prepare(const Value& text, std::int16_t kind,
                        const std::optional<Value>& third) = 0;
  /// Shows a box without an owner window and returns the code of the button pressed (1 OK, 2
  /// Cancel, 6 Yes, 7 No). `kind` is 3 for a failure and 4 for a question or information.
  virtual std::int32_t Show(const Value& text, std::int16_t kind,
                            const std::optional<Value>& source, std::int32_t buttons,
                            const std::optional<Value>& title, bool flag) = 0;

 protected:
  HostMessages() = default;
  HostMessages(const HostMessages&) = default;
  HostMessages& operator=(const HostMessages&) = default;
};

/// The host's side of the component, handed to the factory in component.h; it outlives the
/// component objects made with it.
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
