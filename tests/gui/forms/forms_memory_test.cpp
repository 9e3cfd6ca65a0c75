// What users have made of a window comes back when it is opened again, where that is wanted.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QTemporaryDir>
#include <QTreeView>

#include "adapters/qtforms/qt_forms_toolkit.h"
#include "gui/forms/forms_fixture.h"
#include "platform/tree_grid.h"

namespace vexnumkr::test {
namespace {

class FormsMemoryTest : public testing::Test {
 protected:
  FormsMemoryTest() {
    description_.name = "frmNummernkreise";
    description_.caption = "Nummernkreise";
    description_.width = 6000;
    description_.height = 3000;
    description_.minimumWidth = 3000;
    description_.minimumHeight = 1500;
    description_.resizable = true;
    ControlDescription grid =
        described(ControlKind::TreeGrid, "sftNummernkreise", {0, 0, 6000, 2400}, {}, 0);
    grid.columns = {
        {"", 0}, {"Beschreibung", 100}, {"Start", 87, Alignment::Right, true}, {"Art", 0}};
    description_.controls = {grid};
  }

  QString file() const { return folder_.filePath(QStringLiteral("eigene/fenster.ini")); }

  /// Opens a window and closes it again when `steps` are done.
  void open(const QString& memoryFile, const std::function<void(Form&, QDialog&)>& steps) {
    const auto toolkit = makeQtFormsToolkit(memoryFile);
    RecordingEvents events;
    const auto form = toolkit->createForm(description_, events);
    events.onLoad = [&] { fill(form->control<TreeGrid>("sftNummernkreise")); };
    events.onShown = [&] {
      QMetaObject::invokeMethod(
          QCoreApplication::instance(),
          [&] {
            steps(*form, dynamic_cast<QDialog&>(*form));
            form->Unload();
          },
          Qt::QueuedConnection);
    };
    form->ShowModal();
  }

  static void fill(TreeGrid& grid) {
    for (const char* caption : {"Angebot", "Rechnung"}) {
      grid.List(grid.AddItem(""), 1, caption);
      const std::int32_t child = grid.AddItem("");
      grid.ItemLevel(child, 1);
      grid.List(child, 1, "Standard");
    }
  }

  static QTreeView& listOf(QDialog& window) {
    return *window.findChild<QTreeView*>(QStringLiteral("sftNummernkreise"));
  }
  static bool isOpen(QTreeView& list, int group) {
    return list.isExpanded(list.model()->index(group, 0));
  }

  QTemporaryDir folder_;
  FormDescription description_;
};

TEST_F(FormsMemoryTest, SizeWidthsAndClosedGroupsComeBack) {
  open(file(), [](Form&, QDialog& window) {
    window.resize(517, 333);
    listOf(window).header()->resizeSection(1, 123);
    listOf(window).collapse(listOf(window).model()->index(1, 0));
  });
  open(file(), [](Form& form, QDialog& window) {
    EXPECT_EQ(window.size(), QSize(517, 333));
    EXPECT_EQ(form.control<TreeGrid>("sftNummernkreise").ColWidth(2), 123);
    EXPECT_TRUE(isOpen(listOf(window), 0));
    EXPECT_FALSE(isOpen(listOf(window), 1));
  });
}

TEST_F(FormsMemoryTest, HiddenColumnsStayHidden) {
  open(file(), [](Form&, QDialog&) {});
  open(file(), [](Form& form, QDialog& window) {
    EXPECT_EQ(form.control<TreeGrid>("sftNummernkreise").ColWidth(3), 0);
    EXPECT_EQ(listOf(window).model()->columnCount(), 2);
  });
}

TEST_F(FormsMemoryTest, WithoutAFileEverythingIsAsDesigned) {
  open(QString(), [](Form&, QDialog& window) {
    EXPECT_EQ(window.size(), QSize(400, 200));
    window.resize(517, 333);
  });
  open(QString(), [](Form&, QDialog& window) { EXPECT_EQ(window.size(), QSize(400, 200)); });
}

TEST_F(FormsMemoryTest, NonsenseInTheFileIsAsIfItWereNotThere) {
  ASSERT_TRUE(QDir().mkpath(QFileInfo(file()).path()));
  QFile nonsense(file());
  ASSERT_TRUE(nonsense.open(QIODevice::WriteOnly));
  nonsense.write(
      "[frmNummernkreise]\nFenster=viel\n[frmNummernkreise/sftNummernkreise]\n"
      "Spaltenbreiten=\"2=-5\", \"2=1e99\", \"99=50\", wie\nZugeklappt=Nirgends\n");
  nonsense.close();
  open(file(), [](Form& form, QDialog& window) {
    EXPECT_EQ(window.size(), QSize(400, 200));
    EXPECT_EQ(form.control<TreeGrid>("sftNummernkreise").ColWidth(2), 87);
    EXPECT_TRUE(isOpen(listOf(window), 0));
  });
}

TEST_F(FormsMemoryTest, NobodyIsRememberedWhereNobodyLooks) {
  EXPECT_EQ(QGuiApplication::platformName(), QStringLiteral("offscreen"));
  EXPECT_EQ(usersMemoryFile(), QString());
}

}  // namespace
}  // namespace vexnumkr::test
