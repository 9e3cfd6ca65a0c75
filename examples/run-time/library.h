// The component's library, as a program loads it that is not linked with it.
#pragma once

/// What the system calls the installed library; its name changes with the major version.
extern const char* const installedLibrary;

/// A library with the functions that the host calls; closed when this ends.
class Library {
 public:
  /// Throws what the system says when there is no such library.
  explicit Library(const char* file);
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// The function of that name; `Function` is what the header declares. Throws when there is none.
  template <typename Function>
  Function* function(const char* name) const {
    return reinterpret_cast<Function*>(address(name));
  }

 private:
  void* address(const char* name) const;

  void* handle_;
};
