// The factories of the component.
#pragma once

#include <memory>

#include <vexnumkr/VXNummernkreise.h>
#include <vexnumkr/export.h>
#include <vexnumkr/host_components.h>

namespace vexnumkr {

/// A new component for a Qt application. REQUIRES: a QApplication exists, and this is its thread.
/// `host` is borrowed and must outlive the component.
VEXNUMKR_API std::unique_ptr<VXNummernkreise> createVXNummernkreise(HostComponents& host);

/// A host that offers nothing: no component can be created (error 429), texts and boxes are plain.
VEXNUMKR_API HostComponents& emptyHost();

}  // namespace vexnumkr

/// Creates the component by its class name, for hosts that load the library at run time and look
/// this function up. "VXNummernkreise" and "VEXNummernkreise.VXNummernkreise" are known, in any
/// case. `host` may be null. Returns null for an unknown name, and when the component cannot be
/// made. The caller releases the object with vexnumkrReleaseObject.
extern "C" VEXNUMKR_API vexnumkr::VXNummernkreise* vexnumkrCreateObject(
    const char* className, vexnumkr::HostComponents* host) noexcept;

/// Releases an object of vexnumkrCreateObject; null is ignored.
extern "C" VEXNUMKR_API void vexnumkrReleaseObject(vexnumkr::VXNummernkreise* object) noexcept;
