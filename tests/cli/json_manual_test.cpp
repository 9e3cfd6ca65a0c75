// The description of the program's JSON knows every member that any command writes.
#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <set>

#include "cli/program_database.h"

namespace vexnumkr::test {
namespace {

class JsonManualTest : public ProgramDatabase {
 protected:
  // One of each: full, broken, shared and switched off, of another year, and overlapping.
  JsonManualTest() {
    circle(1, "Werk");
    circle(2, "Ost");
    user("Anna");
    range(0, "RE", 1, 1, 99, {.mask = "NN"});
    range(1, "RE", 1250000, 1259999, 1259999, {.mask = "1JJNNNN"});
    range(2, "RE", 1250000, 1250000, 1250001, {.mask = "X"});
    range(1, "PF", 10, 10, 19, {.sharedKey = "RE"});
    special("PF", "RE", true);
    assign("Anna", 1, "RE");
    assign("Anna", 2, "RE");
    assign("Max", 1, "ZZ");
    assign("ALL", 0, "RE");
  }

  void note(const QJsonValue& value) {
    if (value.isArray())
      for (const QJsonValue& one : value.toArray()) note(one);
    const QJsonObject object = value.toObject();
    for (const QString& name : object.keys()) {
      members_.insert(name.toStdString());
      note(object.value(name));
    }
  }
  void note(const std::string& text) {
    const QByteArray whole = QByteArray::fromStdString(text);
    const QJsonDocument document = QJsonDocument::fromJson(whole);
    if (!document.isNull())
      return note(document.isArray() ? QJsonValue(document.array())
                                     : QJsonValue(document.object()));
    for (const QByteArray& line : whole.split('\n')) note(QJsonDocument::fromJson(line).object());
  }
  /// Runs a command and takes note of what it has written.
  void run(std::vector<std::string> arguments) {
    arguments.push_back("--json");
    const ProgramRun run = vexnumkr(arguments);
    EXPECT_NE(run.output + run.errors, "") << arguments.front();
    note(run.output);
    note(run.errors);
    for (const QJsonDocument& document :
         {QJsonDocument::fromJson(QByteArray::fromStdString(run.output))})
      for (const QJsonValue& check : document.object().value(QStringLiteral("checks")).toArray())
        members_.insert(check[QStringLiteral("name")].toString().toStdString());
  }
  std::string path(const char* name) { return folder_.filePath(QLatin1String(name)).toStdString(); }
  void write(const std::string& file, const std::string& content) {
    QFile opened(QString::fromStdString(file));
    ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
    opened.write(QByteArray::fromStdString(content));
  }

  std::set<std::string> members_;
  QTemporaryDir folder_;
};

QString manual() {
  QFile file(QStringLiteral(PROJECT_DIR "/docs/json.md"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return QString::fromUtf8(file.readAll());
}

TEST_F(JsonManualTest, KnowsEveryMember) {
  run({"check", "--application", "1", "--date", "20261121"});
  run({"rollover", "--application", "1", "--date", "20261121"});
  run({"draw", "--application", "1", "--user", "Anna", "--key", "RE"});
  run({"draw", "--application", "1", "--user", "Max", "--key", "RE", "--circle", "0"});
  run({"mask", "explain", "1JJNNNN", "--date", "20250101", "--application", "1"});
  write(path("nummern"), "x\n1250001\n5\n5\n3000000\n1260000\n");
  run({"gaps", "--application", "1", "--key", "RE", "--numbers-from", path("nummern")});
  run({"export", "--application", "1", "--with-current"});
  write(path("leer.json"), R"({"format":"vexnumkr","version":1,"application":1,"circles":[],)"
                           R"("ranges":[],"assignments":[],"specialRanges":[]})");
  run({"diff", "--application", "1", path("leer.json")});
  run({"import", "--application", "1", "--dry-run", path("leer.json")});
  run({"doctor"});
  run({"schema", "create", "--dry-run"});
  run({"schema", "print", "--engine", database().schema()});
  run({"journal", "install"});
  sql("UPDATE Nummernkreise SET NBezeichnung = 'neu'");
  run({"journal", "show"});
  run({"journal", "remove", "--dry-run"});
  ASSERT_GT(members_.size(), 70U);
  const QString text = manual();
  for (const std::string& member : members_)
    EXPECT_TRUE(text.contains(QLatin1Char('`') + QString::fromStdString(member) + QLatin1Char('`')))
        << member;
}

}  // namespace
}  // namespace vexnumkr::test
