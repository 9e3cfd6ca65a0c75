// Takes the write lock on a SQLite file, says "locked", and keeps it until its input ends. With
// EXCLUSIVE as the second argument nobody reads meanwhile, either.
#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <iostream>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
  database.setDatabaseName(QCoreApplication::arguments().value(1));
  const QString lock = QCoreApplication::arguments().value(2, QStringLiteral("IMMEDIATE"));
  if (!database.open() || !QSqlQuery(database).exec(QStringLiteral("BEGIN ") + lock)) return 1;
  std::cout << "locked" << std::endl;
  std::cin.get();
  return QSqlQuery(database).exec(QStringLiteral("ROLLBACK")) ? 0 : 1;
}
