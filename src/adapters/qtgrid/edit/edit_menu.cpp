#include "adapters/qtgrid/edit/edit_menu.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "adapters/qtgrid/edit/cell_editor.h"

namespace vexnumkr {
namespace {

// The key stands behind the tab only to be seen: the edit knows its keys by itself.
QString label(const char* caption, const char* key) {
  return QString::fromUtf8(caption) + QLatin1Char('\t') + QString::fromUtf8(key);
}

bool canPaste() { return !QGuiApplication::clipboard()->text().isEmpty(); }

}  // namespace

void openEditMenu(CellEditor& edit, const QPoint& position) {
  auto* menu = new QMenu(&edit);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setFont(edit.font());
  menu->setPalette(edit.palette());
  const auto add = [&](const QString& text, bool enabled, auto command) {
    menu->addAction(text, &edit, command)->setEnabled(enabled);
  };
  const bool selected = edit.hasSelectedText();
  add(label("&Rückgängig", "Strg+Z"), edit.isUndoAvailable(), &QLineEdit::undo);
  add(label("&Wiederherstellen", "Strg+Y"), edit.isRedoAvailable(), &QLineEdit::redo);
  menu->addSeparator();
  add(label("&Ausschneiden", "Strg+X"), selected, &QLineEdit::cut);
  add(label("&Kopieren", "Strg+C"), selected, &QLineEdit::copy);
  add(label("&Einfügen", "Strg+V"), canPaste(),
      [&edit] { edit.pasteLine(QGuiApplication::clipboard()->text()); });
  add(label("&Löschen", "Entf"), selected, [&edit] { edit.del(); });
  menu->addSeparator();
  add(label("Alles &markieren", "Strg+A"), edit.selectedText() != edit.text(),
      &QLineEdit::selectAll);
  menu->popup(position);
}

}  // namespace vexnumkr
