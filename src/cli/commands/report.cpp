#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>
#include <fstream>
#include <memory>

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

void writePage(const std::string& file, const numbers::Company& company,
               const numbers::CheckResult& result, const ReportHeading& heading) {
  std::ofstream out(file, std::ios::binary);
  writeReport(out, company, result, heading);
  out.close();
  if (!out) throw UsageError("Die Datei " + file + " ist nicht zu schreiben.");
}

QString browser() {
  for (const char* const name : {"chromium", "chromium-browser", "google-chrome"})
    if (const QString found = QStandardPaths::findExecutable(QLatin1String(name)); !found.isEmpty())
      return found;
  throw UsageError(
      "Für PDF wird Chromium gebraucht, und es ist nicht installiert. Als .html geht es ohne.");
}

// Printed by a browser, as the page would be by hand.
void printPdf(const QString& page, const std::string& file) {
  constexpr int longestMilliseconds = 120'000;
  const QTemporaryDir profile;
  QProcess process;
  process.start(browser(),
                {QStringLiteral("--headless"), QStringLiteral("--no-sandbox"),
                 QStringLiteral("--disable-gpu"), QStringLiteral("--no-pdf-header-footer"),
                 QStringLiteral("--user-data-dir=") + profile.path(),
                 QStringLiteral("--print-to-pdf=") + QString::fromStdString(file),
                 QUrl::fromLocalFile(page).toString()});
  if (!process.waitForFinished(longestMilliseconds)) {
    process.kill();
    process.waitForFinished();
  }
  if (process.exitCode() != 0 || !QFile::exists(QString::fromStdString(file)))
    throw UsageError("Chromium hat die Datei " + file + " nicht geschrieben.");
}

int runReport(Session& session, const ReportOptions& asked) {
  ReportOptions options = asked;
  if (options.check.date.empty()) options.check.date = today();
  const bool asPdf = options.file.ends_with(".pdf");
  if (!asPdf && !options.file.ends_with(".html"))
    throw UsageError("--output muss auf .html oder .pdf enden, nicht \"" + options.file + "\".");
  const numbers::Company company = session.company();
  const numbers::CheckResult result = numbers::check(company, options.check);
  const ReportHeading heading{options.check.date, databaseName(session)};
  if (asPdf) {
    const QTemporaryDir folder;
    const QString page = folder.filePath(QStringLiteral("bericht.html"));
    writePage(page.toStdString(), company, result, heading);
    printPdf(page, options.file);
  } else {
    writePage(options.file, company, result, heading);
  }
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
