// The busy mouse pointer over all windows of the application.
#pragma once

namespace vexnumkr::qtforms {

/// Puts at most one pointer on the application's stack of override pointers, and takes it off again
/// when it goes.
class BusyPointer {
 public:
  BusyPointer() = default;
  ~BusyPointer();
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

  void set(bool busy);

  /// While one of these lives the pointer is the ordinary one; what is set meanwhile shows
  /// afterwards.
  class Pause {
   public:
    explicit Pause(BusyPointer& pointer);
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    BusyPointer& pointer_;
  };

 private:
  void update();

  bool busy_ = false;
  int pauses_ = 0;
  bool shown_ = false;
};

}  // namespace vexnumkr::qtforms
