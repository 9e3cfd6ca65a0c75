// Preloaded into a program, follows what it does to the files of a folder, and may kill it
// meanwhile.
//
//   FILE_OPERATIONS_FOLDER  the folder, as the program names it
//   FILE_OPERATIONS_LOG     gets a line per operation: "write firma.db"; the folder itself is "."
//   FILE_OPERATIONS_KILL    the number of an operation, from 1: when it is due, the program is
//                           killed by SIGKILL. A write is done by half before.
//
// Opening, writing, cutting, syncing, deleting and closing count; reading and locking do not.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <string>

namespace {

template <class Function>
Function* original(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

// The file's name in the folder; empty outside of it.
std::string nameOf(const std::string& path) {
  static const std::string folder = variable("FILE_OPERATIONS_FOLDER");
  if (folder.empty() || path.compare(0, folder.size(), folder) != 0) return {};
  if (path.size() == folder.size()) return ".";
  return path[folder.size()] == '/' ? path.substr(folder.size() + 1) : std::string();
}

std::string pathOf(int file) {
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  std::array<char, PATH_MAX> path{};
  const ssize_t length = readlink(link.c_str(), path.data(), path.size());
  return {path.data(), length < 0 ? 0 : static_cast<std::size_t>(length)};
}

void log(const std::string& line) {
  static const std::string path = variable("FILE_OPERATIONS_LOG");
  if (path.empty()) return;
  static const int file = original<int(const char*, int, ...)>("open64")(
      path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  static auto* const writeLine = original<ssize_t(int, const void*, size_t)>("write");
  if (writeLine(file, line.c_str(), line.size()) < 0) std::abort();
}

// Counts an operation on the file at `path`; whether the program is to be killed now.
bool isLast(const char* operation, const std::string& path) {
  const std::string name = nameOf(path);
  if (name.empty()) return false;
  static std::atomic<long> count = 0;
  static const long last = std::atol(variable("FILE_OPERATIONS_KILL").c_str());
  log(std::string(operation) + ' ' + name + '\n');
  return ++count == last;
}

void dieWhenItIsTime(const char* operation, const std::string& path) {
  if (isLast(operation, path)) kill(getpid(), SIGKILL);
}

}  // namespace

extern "C" {

int open64(const char* path, int flags, ...) {
  std::va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  dieWhenItIsTime("open", path);
  return original<int(const char*, int, ...)>("open64")(path, flags, mode);
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t place) {
  static auto* const real = original<ssize_t(int, const void*, size_t, off64_t)>("pwrite64");
  if (isLast("write", pathOf(file))) {
    real(file, bytes, count / 2, place);
    kill(getpid(), SIGKILL);
  }
  return real(file, bytes, count, place);
}

int ftruncate64(int file, off64_t size) noexcept {
  dieWhenItIsTime("cut", pathOf(file));
  return original<int(int, off64_t)>("ftruncate64")(file, size);
}

int fdatasync(int file) {
  dieWhenItIsTime("sync", pathOf(file));
  return original<int(int)>("fdatasync")(file);
}

int unlink(const char* path) noexcept {
  dieWhenItIsTime("delete", path);
  return original<int(const char*)>("unlink")(path);
}

int close(int file) {
  static auto* const real = original<int(int)>("close");
  dieWhenItIsTime("close", pathOf(file));
  return real(file);
}

}  // extern "C"
