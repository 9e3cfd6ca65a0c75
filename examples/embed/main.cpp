// A small host application that embeds the component.
//
//   vexnumkr-embed-example CONNECTION USER [--demo]
//
// The host has a database, users of its own, a settings store and a way to maintain booking
// circles. It hands them over, and its users find "Nummernkreise" behind a button. With --demo the
// example presses that button and "Abbrechen" by itself, and ends.

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTimer>
#include <iostream>
#include <memory>
#include <string>

#include <vexnumkr/adapters.h>
#include <vexnumkr/component.h>
#include <vexnumkr/error.h>

namespace {

// What application code 1 stands for in this host.
constexpr std::int32_t orderProcessing = 1;

/// The host's settings, kept where Qt keeps an application's settings. QSettings may tell "OnNew"
/// and "ONNew" apart; the component needs a store that does not.
class Settings : public vexnumkr::SettingsStore {
 public:
  void Init(std::int32_t, vexnumkr::Connection&) override {}

  void GetSetting(const std::string& section, const std::string& key, std::string& value,
                  const std::string&, const std::string&,
                  const std::string& defaultValue) override {
    const QString fallback = QString::fromStdString(defaultValue);
    value = settings_.value(name(section, key), fallback).toString().toStdString();
  }

  void SaveSetting(const std::string& section, const std::string& key, const std::string& value,
                   const std::string&) override {
    settings_.setValue(name(section, key), QString::fromStdString(value));
  }

 private:
  static QString name(const std::string& section, const std::string& key) {
    return QString::fromStdString(section + '/' + key).toLower();
  }

  QSettings settings_;
};

/// The host's way to maintain booking circles: it asks for the name of one more.
class BookingCircles : public vexnumkr::BookingCircleDialog {
 public:
  void Connection(std::shared_ptr<vexnumkr::Connection> connection) override {
    connection_ = std::move(connection);
  }

  void MultiSelect(bool) override {}

  void Show(const std::string& origin, std::int32_t) override {
    QString name =
        QInputDialog::getText(QApplication::activeModalWidget(), QStringLiteral("Buchungskreise"),
                              QStringLiteral("Neuer Buchungskreis:"));
    if (name.isEmpty()) return;
    name.replace(QLatin1Char('\''), QStringLiteral("''"));
    std::int32_t added = 0;
    connection_->Execute(
        "INSERT INTO Nummernkreis_Buchungskreise SELECT MAX(Buchungskreis) + 1, '" +
            name.toStdString() + "', '" + origin + "' FROM Nummernkreis_Buchungskreise",
        added);
  }

 private:
  std::shared_ptr<vexnumkr::Connection> connection_;
};

/// What the host offers. It has no text catalogue and no message facility of its own: the component
/// then shows plain boxes.
class Host : public vexnumkr::HostComponents {
 public:
  std::unique_ptr<vexnumkr::HostComponent> CreateObject(const std::string& name) override {
    if (name == vexnumkr::component_name::settings) return std::make_unique<Settings>();
    if (name == vexnumkr::component_name::bookingCircles) return std::make_unique<BookingCircles>();
    throw vexnumkr::Error::cannotCreateObject();
  }
  vexnumkr::HostTexts* Texts() override { return nullptr; }
  vexnumkr::HostMessages* Messages() override { return nullptr; }
};

/// Presses the button named `name` as soon as a dialog shows it.
void pressWhenShown(const QString& name) {
  QTimer::singleShot(20, qApp, [name] {
    const QWidget* dialog = QApplication::activeModalWidget();
    auto* button = dialog == nullptr ? nullptr : dialog->findChild<QPushButton*>(name);
    if (button == nullptr || !button->isVisible()) return pressWhenShown(name);
    button->click();
  });
}

int run(const std::string& connectionText, const std::string& user, bool demo) {
  Host host;
  const std::shared_ptr<vexnumkr::Connection> connection =
      vexnumkr::openQtSqlConnection(connectionText);
  const std::unique_ptr<vexnumkr::VXNummernkreise> numbers = vexnumkr::createVXNummernkreise(host);
  if (!numbers->Init(connection, orderProcessing, user)) return 1;

  QPushButton window(QStringLiteral("Nummernkreise …"));
  window.setMinimumSize(320, 120);
  QObject::connect(&window, &QPushButton::clicked, &window, [&] { numbers->ShowDialog(); });
  window.show();
  if (demo) {
    QTimer::singleShot(0, &window, [&] {
      pressWhenShown(QStringLiteral("cmdCancel"));
      window.click();
      std::cout << "Der Dialog ist geschlossen." << std::endl;
      window.close();
    });
  }
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setOrganizationName(QStringLiteral("Beispiel"));
  QApplication::setApplicationName(QStringLiteral("Einbettung"));
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 3) {
    std::cerr << "Aufruf: vexnumkr-embed-example VERBINDUNG BENUTZER [--demo]\n";
    return 2;
  }
  try {
    return run(arguments[1].toStdString(), arguments[2].toStdString(),
               arguments.contains(QStringLiteral("--demo")));
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
