// The host's window icon: a numbered sheet with the bar of its range.
#pragma once

#include <string>

class QIcon;
class QImage;

namespace vexnumkr::app {

/// The icon, `size` pixels square. It is drawn on a grid of 16 units, so it is sharp at every
/// multiple of 16. REQUIRES: a QGuiApplication exists.
QImage paintWindowIcon(int size);

/// The icon in the sizes that window systems ask for.
QIcon windowIcon();

/// The icon as a PNG file.
std::string windowIconPng(int size);

}  // namespace vexnumkr::app
