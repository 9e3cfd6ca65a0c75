// The dialogs at the scale of the screen that the test is run on: nothing is cut off in any of
// their fonts, and the window is usable in every size.
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTreeView>

#include "adapters/qtgrid/view/cell_layout.h"
#include "support/dialog_session.h"

namespace vexnumkr::test {
namespace {

constexpr int buttonFrame = 4;

const char* const longestNumber = "-2147483648";

// The families that stand in for the dialogs' fonts, from the best to what every machine has.
const char* const substitutes[] = {"Liberation Sans", "DejaVu Sans Condensed",
                                   "Liberation Sans Narrow"};

bool fits(const QWidget& widget, const QString& text, const QRect& area) {
  return widget.fontMetrics().horizontalAdvance(text) <= area.width() &&
         widget.fontMetrics().height() <= area.height();
}

QRect contents(const QRadioButton& button) {
  QStyleOptionButton option;
  option.initFrom(&button);
  return button.style()->subElementRect(QStyle::SE_RadioButtonContents, &option, &button);
}

QRect contents(const QComboBox& combo) {
  QStyleOptionComboBox option;
  option.initFrom(&combo);
  return combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField,
                                       &combo);
}

bool fits(const QLabel& label) {
  if (!label.wordWrap()) return fits(label, label.text(), label.rect());
  const QRect needed = label.fontMetrics().boundingRect(
      label.contentsRect(), static_cast<int>(label.alignment()) | Qt::TextWordWrap, label.text());
  return label.contentsRect().contains(needed);
}

bool fits(const QHeaderView& header) {
  for (int section = 0; section < header.count(); ++section) {
    const QString text = header.model()->headerData(section, Qt::Horizontal).toString();
    const QRect area(0, 0, header.sectionSize(section) - 2 * cellPadding, header.height());
    if (!header.isSectionHidden(section) && !fits(header, text, area)) return false;
  }
  return true;
}

bool showsItsTexts(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return fits(*label);
  if (const auto* header = qobject_cast<const QHeaderView*>(&widget)) return fits(*header);
  if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
    const QRect inside = button->rect().adjusted(buttonFrame, 0, -buttonFrame, 0);
    return fits(*button, button->text(), inside);
  }
  if (const auto* option = qobject_cast<const QRadioButton*>(&widget)) {
    return fits(*option, option->text(), contents(*option));
  }
  if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
    return fits(*group, group->title(), group->rect());
  }
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
    return fits(*combo, combo->currentText(), contents(*combo));
  }
  return true;
}

class DialogLookTest : public DialogSession {
 protected:
  QTreeView& view() const { return control<QTreeView>("sftNummernkreise"); }

  /// The controls of the dialog in front whose texts are cut off.
  Lines clipped() const {
    Lines names;
    for (const QWidget* widget : dialog().findChildren<QWidget*>())
      if (widget->isVisible() && !showsItsTexts(*widget))
        names.push_back(widget->objectName().toStdString());
    return names;
  }

  void expectNothingClipped() const {
    EXPECT_EQ(clipped(), Lines{}) << dialog().objectName().toStdString() << " in "
                                  << QFontInfo(dialog().font()).family().toStdString();
  }

  /// The same with every family that may stand in for the dialog's fonts.
  void expectNothingClippedInAnyFont() const {
    expectNothingClipped();
    auto& form = dynamic_cast<Form&>(dialog());
    for (const char* family : substitutes) {
      for (Control* each : form.Controls()) {
        each->SetFont({family});
        if (auto* tree = dynamic_cast<TreeGrid*>(each)) tree->ColHeaderFont({family});
      }
      expectNothingClipped();
    }
  }

  void visit(const char* button, const char* name) {
    expectDialog(name, [&] {
      expectNothingClippedInAnyFont();
      press("cmdCancel");
    });
    press(button);
  }

  /// How much room a cell has for its text.
  int roomOf(int section) const { return view().header()->sectionSize(section) - 2 * cellPadding; }

  void expectRoomForNumbers() const {
    const QString number = QString::fromLatin1(longestNumber);
    for (const int section : {1, 2, 3})
      EXPECT_LE(view().fontMetrics().horizontalAdvance(number), roomOf(section))
          << "column " << section << " of a window " << dialog().width() << " wide";
  }

  void expectGridInItsPlace() const {
    EXPECT_FALSE(view().horizontalScrollBar()->isVisible());
    EXPECT_EQ(view().header()->length(), view().viewport()->width());
    for (const QWidget* each : dialog().findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      const bool inside = dialog().rect().contains(each->geometry());
      EXPECT_TRUE(inside || !each->isVisible()) << each->objectName().toStdString();
    }
  }
};

/// The application decides upon the font.
class DialogFontsTest : public DialogLookTest, public testing::WithParamInterface<int> {};

TEST_P(DialogFontsTest, NothingIsCutOff) {
  const std::string origin = GetParam() == 1 ? "ORB" : "ORC";
  sql("INSERT INTO Nummernkreis_Sonderkreise VALUES ('AX', 'AN', 'Export', 0, '" + origin + "')");
  inCompany(GetParam(), [&] {
    expectNothingClipped();
    visit("cmdSonderkreise", "frmSonderkreise");
    if (GetParam() == 2) visit("cmdOptionen", "frmOptionen");
    expectNothingClippedInAnyFont();
  });
}

TEST_P(DialogFontsTest, NumbersAreShownInFull) {
  inCompany(GetParam(), [&] {
    expectRoomForNumbers();
    resize(dialog().minimumWidth(), dialog().minimumHeight());
    expectRoomForNumbers();
    for (const char* family : substitutes) {
      dynamic_cast<Form&>(dialog()).control<TreeGrid>("sftNummernkreise").SetFont({family});
      expectRoomForNumbers();
    }
  });
}

INSTANTIATE_TEST_SUITE_P(Applications, DialogFontsTest, testing::Values(1, 2));

TEST_F(DialogLookTest, TheEditorShowsTheLongestNumberInFull) {
  inCompany(2, [&] {
    resize(dialog().minimumWidth(), dialog().minimumHeight());
    for (const std::int32_t column : {2, 3, 4}) {
      click(1, column);
      type(longestNumber);
      const QLineEdit& line = gridAccess().editor();
      const int needed = line.fontMetrics().horizontalAdvance(line.text());
      EXPECT_LE(needed, line.width() - 2 * cellPadding) << column;
      key("Escape");
    }
  });
}

TEST_F(DialogLookTest, TheDialogIsUsableInEverySize) {
  inCompany(2, [&] {
    for (const QSize size : {dialog().minimumSize(), QSize(640, 481), QSize(800, 600),
                             QSize(1280, 1024), QSize(1920, 1080), QSize(3840, 2160)}) {
      resize(size.width(), size.height());
      ASSERT_EQ(dialog().size(), size);
      SCOPED_TRACE(size.width());
      expectNothingClipped();
      expectRoomForNumbers();
      expectGridInItsPlace();
      EXPECT_GE(
          view().viewport()->height() / view().visualRect(view().model()->index(0, 0)).height(), 5);
    }
    resize(10, 10);
    EXPECT_EQ(dialog().size(), dialog().minimumSize());
  });
}

}  // namespace
}  // namespace vexnumkr::test
