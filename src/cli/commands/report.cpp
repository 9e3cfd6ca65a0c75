#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>
#include <memory>
#include <sstream>

#include <vexnumkr/connection_string.h>

#include "cli/commands/commands.h"
#include "cli/exit_status.h"
#include "cli/report/report_page.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

struct ReportOptions {
  std::string file;
  numbers::CheckOptions check;
};

// "PostgreSQL" says less than which database it is; a path is as good.
std::string databaseName(const Session& session) {
  const std::string& text = session.connectionText();
  std::string name = connectionValue(text, "Database");
  if (const std::string server = connectionValue(text, "Server"); !server.empty())
    name += " auf " + server;
  return withoutPasswords(name, text);
}

UsageError notWritable(const std::string& file) {
  return UsageError("Die Datei " + file + " ist nicht zu schreiben.");
}

// Whoever has the report of yesterday keeps it until that of today is whole.
void writeWhole(const std::string& file, const QByteArray& content) {
  QSaveFile out(QString::fromStdString(file));
  const bool isWritten =
      out.open(QIODevice::WriteOnly) && out.write(content) == content.size() && out.commit();
  if (!isWritten) throw notWritable(file);
}

QByteArray pageOf(const numbers::Company& company, const numbers::CheckResult& result,
                  const ReportHeading& heading) {
  std::ostringstream page;
  writeReport(page, company, result, heading);
  return QByteArray::fromStdString(page.str());
}

QString browser() {
  for (const char* const name : {"chromium", "chromium-browser", "google-chrome"})
    if (const QString found = QStandardPaths::findExecutable(QLatin1String(name)); !found.isEmpty())
      return found;
  throw UsageError(
      "Für PDF wird Chromium gebraucht, und es ist nicht installiert. Als .html geht es ohne.");
}

// Printed by a browser, as the page would be by hand; a browser that fails leaves nothing behind.
QByteArray printed(const QByteArray& page) {
  constexpr int longestMilliseconds = 120'000;
  const QTemporaryDir folder;
  const QString html = folder.filePath(QStringLiteral("bericht.html"));
  const QString pdf = folder.filePath(QStringLiteral("bericht.pdf"));
  writeWhole(html.toStdString(), page);
  QProcess process;
  process.start(browser(),
                {QStringLiteral("--headless"), QStringLiteral("--no-sandbox"),
                 QStringLiteral("--disable-gpu"), QStringLiteral("--no-pdf-header-footer"),
                 QStringLiteral("--user-data-dir=") + folder.filePath(QStringLiteral("profil")),
                 QStringLiteral("--print-to-pdf=") + pdf, QUrl::fromLocalFile(html).toString()});
  if (!process.waitForFinished(longestMilliseconds)) {
    process.kill();
    process.waitForFinished();
  }
  QFile file(pdf);
  const bool isFine = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
                      file.open(QIODevice::ReadOnly);
  const QByteArray content = isFine ? file.readAll() : QByteArray();
  if (!content.startsWith("%PDF")) throw UsageError("Chromium hat den Bericht nicht gedruckt.");
  return content;
}

bool endsWith(const std::string& file, const char* ending) {
  return QString::fromStdString(file).endsWith(QLatin1String(ending), Qt::CaseInsensitive);
}

int runReport(Session& session, const ReportOptions& asked) {
  ReportOptions options = asked;
  if (options.check.date.empty()) options.check.date = today();
  const bool asPdf = endsWith(options.file, ".pdf");
  if (!asPdf && !endsWith(options.file, ".html"))
    throw UsageError("--output muss auf .html oder .pdf enden, nicht \"" + options.file + "\".");
  const numbers::Company company = session.company();
  const numbers::CheckResult result = numbers::check(company, options.check);
  const QString made =
      QDateTime::currentDateTime().toString(QStringLiteral("dd.MM.yyyy HH:mm 'Uhr'"));
  const ReportHeading heading{options.check.date, made.toStdString(), databaseName(session)};
  const QByteArray page = pageOf(company, result, heading);
  writeWhole(options.file, asPdf ? printed(page) : page);
  return exit_status::fine;
}

}  // namespace

void addReport(CommandSet& commands) {
  const auto options = std::make_shared<ReportOptions>();
  Command command = commands.add(
      {"report", "Schreibt einen Bericht für Verwaltung und Prüfung als eine Seite.",
       "report --application 1 -o nummernkreise.html"},
      Needs::application, [options](Session& session) { return runReport(session, *options); });
  command.addText({"-o,--output", "DATEI", "die Seite als .html, oder über Chromium als .pdf"},
                  options->file, Presence::required);
  command.addDate(options->check.date);
}

}  // namespace vexnumkr::cli
