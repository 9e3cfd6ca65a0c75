// What the stand-alone host is asked to do on its command line.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vexnumkr::app {

/// The host's orders. Texts that were not given are empty.
struct HostOptions {
  bool showHelp = false;
  bool showVersion = false;
  std::string createSample;   ///< the SQLite file to make, before anything is opened
  bool createTables = false;  ///< make the sample in the database of `connection` instead
  int sampleScale = 0;        ///< 0 is the small company
  bool showDialog = false;    ///< false when only a sample is made
  std::string connection;     ///< the connection string, wherever it came from
  std::int32_t application = 0;
  std::string user;
  std::string date;   ///< "yyyymmdd", or empty for today
  std::string tour;   ///< the folder for the pictures of the guided tour
  bool dark = false;  ///< light on dark
};

/// A command line that asks for nothing that the host can do. The text is for its user (German).
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads `arguments` (without the program's name, UTF-8). `environmentConnection` is the value of
/// VEXNUMKR_CONNECTION, if it is set; --connection and --connection-file go before it, and so does
/// the database just made by --create-sample. Reads the file of --connection-file.
/// Error: UsageError.
HostOptions readCommandLine(const std::vector<std::string>& arguments,
                            const std::optional<std::string>& environmentConnection);

/// The text of --help.
std::string helpText();

}  // namespace vexnumkr::app
