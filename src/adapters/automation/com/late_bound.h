// An automation object that is known by the names of its members only.
#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "adapters/automation/com/com_headers.h"
#include "adapters/automation/com/variant.h"

namespace vexnumkr::automation {

/// Calls members by name, as a script does.
///
/// The object is held as long as this lives, and is used on the thread that it was handed over on.
/// Errors: 91 where there is no object; 438 for a member that it does not have; whatever the member
/// raises, with its number, source and description.
class LateBound {
 public:
  LateBound() = default;
  explicit LateBound(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  /// A new object of the class registered under that name. Error 429 where there is none.
  static LateBound create(std::string_view name);

  IDispatch* object() const { return object_.Get(); }
  explicit operator bool() const { return object_ != nullptr; }

  /// The value of a property, or the result of a method. Arguments are borrowed; those made with
  /// Variant::reference may be changed.
  Variant call(std::string_view member, std::initializer_list<const Variant*> arguments = {});

  /// Sets a property.
  void put(std::string_view member, const Variant& value);
  /// Sets a property that holds a reference to an object.
  void putReference(std::string_view member, const Variant& value);

 private:
  DISPID idOf(std::string_view member);
  DISPID findId(std::string_view member) const;

  ComPtr<IDispatch> object_;
  std::map<std::string, DISPID, std::less<>> ids_;
};

}  // namespace vexnumkr::automation
