#include "app/connection_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QString>
#include <cerrno>

#include "app/command_line.h"

namespace vexnumkr::app {
namespace {

constexpr std::size_t largest = 64 * 1024;

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return number_; }

 private:
  int number_;
};

UsageError refused(const std::string& file, const std::string& why) {
  return UsageError("Die Verbindungsdatei " + file + ' ' + why);
}

UsageError unreadable(const std::string& file, int error) {
  const auto why = [&]() -> std::string {
    if (error == ENOENT || error == ENOTDIR) return "Es gibt sie nicht.";
    if (error == EACCES || error == EPERM) return "Die Rechte dazu fehlen.";
    return qt_error_string(error).toStdString();
  };
  return refused(file, "ist nicht zu lesen: " + why());
}

void requireRegular(const struct stat& state, const std::string& file) {
  if (!S_ISREG(state.st_mode)) throw refused(file, "ist keine gewöhnliche Datei.");
}

// A pipe or a device is not even opened: it might block, or do something.
void requireRegular(const std::string& file) {
  struct stat state {};
  if (stat(file.c_str(), &state) != 0) throw unreadable(file, errno);
  requireRegular(state, file);
}

// What was looked at by its name may be another file by now.
void requireOwn(const Descriptor& opened, const std::string& file) {
  struct stat state {};
  if (fstat(opened.get(), &state) != 0) throw unreadable(file, errno);
  requireRegular(state, file);
  if (state.st_uid != geteuid())
    throw refused(file, "gehört einem anderen Benutzer; sie muss dem gehören, der sie benutzt.");
  if ((state.st_mode & (S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH)) != 0)
    throw refused(file, "darf nur für ihren Eigentümer lesbar sein (chmod 600).");
}

std::string contents(const Descriptor& opened, const std::string& file) {
  std::string text(largest + 1, '\0');
  std::size_t size = 0;
  while (size < text.size()) {
    const ssize_t count = read(opened.get(), text.data() + size, text.size() - size);
    if (count < 0) throw unreadable(file, errno);
    if (count == 0) break;
    size += static_cast<std::size_t>(count);
  }
  if (size > largest) throw refused(file, "ist zu groß; mehr als 64 KiB werden nicht gelesen.");
  text.resize(size);
  return text;
}

}  // namespace

std::string readConnectionFile(const std::string& file) {
  requireRegular(file);
  const Descriptor opened(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  if (opened.get() < 0) throw unreadable(file, errno);
  requireOwn(opened, file);
  const std::string text = contents(opened, file);
  const std::string line = text.substr(0, text.find('\n'));
  const std::size_t begin = line.find_first_not_of(" \t\r");
  if (begin == std::string::npos) throw refused(file, "ist leer.");
  return line.substr(begin, line.find_last_not_of(" \t\r") - begin + 1);
}

}  // namespace vexnumkr::app
