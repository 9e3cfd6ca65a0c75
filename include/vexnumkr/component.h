// The factories of the component.
#pragma once

#include <memory>

#include <vexnumkr/VXNummernkreise.h>
#include <vexnumkr/database_access.h>
#include <vexnumkr/export.h>
#include <vexnumkr/host_components.h>

namespace vexnumkr {

/// A new component for a Qt application. `host` is borrowed and must outlive the component.
/// `access` is how it asks the database. Error 429 when there is no QApplication (a
/// QCoreApplication or QGuiApplication is not enough) or this is not its thread.
VEXNUMKR_API std::unique_ptr<VXNummernkreise> createVXNummernkreise(
    HostComponents& host, DatabaseAccess access = DatabaseAccess::inSets);

/// A host that offers nothing: no component can be created (error 429), texts and boxes are plain.
VEXNUMKR_API HostComponents& emptyHost();

}  // namespace vexnumkr

/// Creates the component by its class name, for hosts that load the library at run time and look
/// this function up. "VXNummernkreise" and "VEXNummernkreise.VXNummernkreise" are known, in any
/// case; it asks the database in sets. `host` may be null. Returns null for an unknown name, and
/// when the component cannot be made. The caller releases the object with vexnumkrReleaseObject.
///
/// A host without Qt calls this on the thread that is to show the dialogs: it gets a QApplication,
/// which stays until the process ends. Where there is no display the result is null, and so it is
/// on a thread other than the QApplication's, and where the host has an application object of Qt's
/// that shows no dialogs. From the first call on the library stays loaded, so that what it has made
/// goes on working when the host closes it.
extern "C" VEXNUMKR_API vexnumkr::VXNummernkreise* vexnumkrCreateObject(
    const char* className, vexnumkr::HostComponents* host) noexcept;

/// Releases an object of vexnumkrCreateObject, at any time as its destructor says; null is ignored.
extern "C" VEXNUMKR_API void vexnumkrReleaseObject(vexnumkr::VXNummernkreise* object) noexcept;

/// The version of the library that runs, e.g. "2.0.0".
extern "C" VEXNUMKR_API const char* vexnumkrVersion() noexcept;
