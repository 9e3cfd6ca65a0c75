// A host that knows nothing of Qt and loads the component when its user asks for it.
//
//   vexnumkr-run-time-example CONNECTION USER
//
// VEXNUMKR_LIBRARY names another library file than the installed one.

#include <array>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include <vexnumkr/adapters.h>
#include <vexnumkr/component.h>

#include "library.h"

namespace {

// What application code 1 stands for in this host.
constexpr std::int32_t orderProcessing = 1;

std::shared_ptr<vexnumkr::Connection> openConnection(const Library& library, const char* text) {
  std::array<char, 1024> failure{};
  auto* open = library.function<decltype(vexnumkrOpenConnection)>("vexnumkrOpenConnection");
  vexnumkr::Connection* connection = open(text, failure.data(), failure.size());
  if (connection == nullptr) throw std::runtime_error(failure.data());
  auto* release =
      library.function<decltype(vexnumkrReleaseConnection)>("vexnumkrReleaseConnection");
  return {connection, release};
}

void showDialog(const Library& library, const char* connectionText, const std::string& user) {
  const auto connection = openConnection(library, connectionText);
  auto* create = library.function<decltype(vexnumkrCreateObject)>("vexnumkrCreateObject");
  auto* release = library.function<decltype(vexnumkrReleaseObject)>("vexnumkrReleaseObject");
  const std::unique_ptr<vexnumkr::VXNummernkreise, decltype(release)> numbers(
      create("VXNummernkreise", nullptr), release);
  if (!numbers) throw std::runtime_error("VXNummernkreise kann nicht erzeugt werden.");
  if (numbers->Init(connection, orderProcessing, user)) numbers->ShowDialog();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "Aufruf: vexnumkr-run-time-example VERBINDUNG BENUTZER\n";
    return 2;
  }
  try {
    const char* file = std::getenv("VEXNUMKR_LIBRARY");
    const Library library(file != nullptr ? file : installedLibrary);
    std::cout << "vexnumkr " << library.function<decltype(vexnumkrVersion)>("vexnumkrVersion")()
              << '\n';
    showDialog(library, argv[1], argv[2]);
    std::cout << "Der Dialog ist geschlossen." << std::endl;
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
