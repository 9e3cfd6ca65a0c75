// The stand-alone host's settings store.
#pragma once

#include <memory>
#include <string>

#include <vexnumkr/host_components.h>

namespace vexnumkr::app {

/// "VEXSetting.VXSettings": keeps settings in the table Einstellungen, which the first SaveSetting
/// makes. Sections and keys are compared without regard to case and keep their first spelling.
///
/// On SQLite, where a dialog's open transaction may be the one writer of its file, the table lies
/// in a file of its own beside the database, also when that is reached through ODBC; on other
/// engines in the database of the connection.
class TableSettings : public SettingsStore {
 public:
  /// Errors: the engine's, for a settings file that cannot be opened, or that somebody else keeps
  /// locked; that is as if Init had not been called.
  void Init(std::int32_t reserved, Connection& connection) override;
  /// Without a settings table every setting has its default. Errors: 91 before Init; the engine's.
  void GetSetting(const std::string& section, const std::string& key, std::string& value,
                  const std::string& profile, const std::string& user,
                  const std::string& defaultValue) override;
  /// Errors: 91 before Init; 75 when the settings file cannot be made; the engine's.
  void SaveSetting(const std::string& section, const std::string& key, const std::string& value,
                   const std::string& profile) override;

 private:
  /// The connection with the settings table, or null while there is no such table.
  Connection* stored();
  /// The connection with the settings table, which is made where it is missing.
  Connection& prepared();

  Connection* host_ = nullptr;       // borrowed by Init
  std::string file_;                 // the settings' own file, empty where they have none
  std::unique_ptr<Connection> own_;  // open on that file, once there is one
};

/// Where the settings of a database in `databaseFile` lie: its name with "-einstellungen" before
/// the ending.
std::string settingsFile(const std::string& databaseFile);

}  // namespace vexnumkr::app
