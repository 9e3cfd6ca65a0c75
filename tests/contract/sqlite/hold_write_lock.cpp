// Takes the write lock on a SQLite file, says "locked", and keeps it until its input ends.
#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <iostream>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
  database.setDatabaseName(QCoreApplication::arguments().value(1));
  if (!database.open() || !QSqlQuery(database).exec(QStringLiteral("BEGIN IMMEDIATE"))) return 1;
  std::cout << "locked" << std::endl;
  std::cin.get();
  return QSqlQuery(database).exec(QStringLiteral("ROLLBACK")) ? 0 : 1;
}
