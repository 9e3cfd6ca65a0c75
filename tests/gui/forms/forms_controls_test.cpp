// What all controls have in common, and the kinds that do little else.
#include <QApplication>
#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QRadioButton>
#include <QTest>
#include <QToolTip>

#include "adapters/qt/tool_tips.h"
#include "gui/forms/forms_fixture.h"

namespace vexnumkr::test {
namespace {

ControlDescription option(int index, const std::string& frame, const Rect& position, int tabIndex) {
  ControlDescription result =
      described(ControlKind::OptionButton, "opt" + frame, position, "Wahl", tabIndex);
  result.arrayIndex = index;
  result.parent = "fra" + frame;
  return result;
}

class ControlsTest : public FormsTest {
 protected:
  ControlsTest() {
    // The option buttons stand before their frames, which has to make no difference.
    make({option(0, "Eins", {150, 300, 1500, 255}, 3), option(1, "Eins", {150, 600, 1500, 255}, 4),
          option(0, "Zwei", {150, 300, 1500, 255}, 5), option(1, "Zwei", {150, 600, 1500, 255}, 6),
          described(ControlKind::Frame, "fraEins", {0, 900, 2000, 900}, "Angebot"),
          described(ControlKind::Frame, "fraZwei", {2100, 900, 2000, 900}),
          described(ControlKind::Label, "lblUser", {150, 120, 1200, 195}, "Benutzer:"), combo(),
          button("cmdMore", {3000, 75, 400, 315}, "...", 2),
          button("cmdOK", {3000, 2500, 1335, 345}, "&OK", 1, ButtonRole::Default), picture()});
  }

  static ControlDescription combo() {
    ControlDescription result =
        described(ControlKind::ComboBox, "cboUser", {1400, 75, 1500, 315}, {}, 0);
    result.accessibleName = "Benutzer";
    return result;
  }

  static ControlDescription picture() {
    ControlDescription result = described(ControlKind::PictureHolder, "Checked", {0, 0, 240, 240});
    result.picture = PictureKind::CheckedBox;
    return result;
  }

  Control& control(const char* name) { return form->control<Control>(name); }
  OptionButton& choice(const char* name, int index) {
    return form->control<OptionButton>(name, index);
  }
};

TEST_F(ControlsTest, ComeInTheOrderOfTheDescription) {
  Log names;
  for (const Control* each : form->Controls()) names.push_back(each->Name());
  EXPECT_EQ(names, (Log{"optEins", "optEins", "optZwei", "optZwei", "fraEins", "fraZwei", "lblUser",
                        "cboUser", "cmdMore", "cmdOK", "Checked"}));
}

TEST_F(ControlsTest, AreFoundByNameAndIndex) {
  EXPECT_EQ(form->FindControl("optZwei", 1), form->Controls()[3]);
  EXPECT_EQ(form->FindControl("cmdOK"), form->Controls()[9]);
  EXPECT_EQ(form->FindControl("optZwei"), nullptr);
  EXPECT_EQ(form->FindControl("cmdOK", 0), nullptr);
  EXPECT_EQ(form->FindControl("cmdNone"), nullptr);
  EXPECT_THROW(form->control<ComboBox>("cmdOK"), Error);
}

TEST_F(ControlsTest, CarryNamesAndPlacesForTools) {
  const QStringList kinds = {QStringLiteral("OptionButton"), QStringLiteral("OptionButton"),
                             QStringLiteral("OptionButton"), QStringLiteral("OptionButton"),
                             QStringLiteral("Frame"),        QStringLiteral("Frame"),
                             QStringLiteral("Label"),        QStringLiteral("ComboBox"),
                             QStringLiteral("Button"),       QStringLiteral("Button"),
                             QStringLiteral("PictureHolder")};
  QStringList found(kinds.size());
  for (const QWidget* each : window().findChildren<QWidget*>()) {
    const QVariant order = each->property("controlOrder");
    if (order.isValid()) found[order.toInt()] = each->property("controlKind").toString();
  }
  EXPECT_EQ(found, kinds);
  EXPECT_EQ(widget("optZwei(1)").property("controlOrder").toInt(), 3);
}

TEST_F(ControlsTest, HaveAccessibleNames) {
  EXPECT_EQ(widget("cboUser").accessibleName(), QStringLiteral("Benutzer"));
  EXPECT_EQ(widget("cmdOK").accessibleName(), QStringLiteral("OK"));
  EXPECT_EQ(widget("lblUser").accessibleName(), QStringLiteral("Benutzer:"));
}

TEST_F(ControlsTest, StandWhereTheyAreDescribed) {
  EXPECT_EQ(widget("lblUser").geometry(), QRect(10, 8, 80, 13));
  EXPECT_EQ(widget("optEins(1)").parentWidget(), &widget("fraEins"));
  EXPECT_EQ(widget("optEins(1)").geometry(), QRect(10, 40, 100, 17));
  EXPECT_EQ(control("cmdOK").Position().left, 3000);
}

TEST_F(ControlsTest, AreMovedInTwipsWithoutDrift) {
  Control& label = control("lblUser");
  for (int step = 0; step < 10; ++step) {
    Rect position = label.Position();
    position.left += 7;
    position.width -= 1;
    label.Position(position);
  }
  EXPECT_EQ(label.Position().left, 220);
  EXPECT_EQ(label.Position().width, 1190);
  EXPECT_EQ(widget("lblUser").geometry(), QRect(15, 8, 79, 13));
  label.Position({-30, 0, -15, -15});
  EXPECT_EQ(widget("lblUser").geometry(), QRect(-2, 0, 0, 0));
}

TEST_F(ControlsTest, VisibilityIsTheirOwn) {
  EXPECT_TRUE(control("cmdOK").Visible());
  control("cmdOK").Visible(false);
  EXPECT_FALSE(control("cmdOK").Visible());
  show([&] {
    EXPECT_FALSE(widget("cmdOK").isVisible());
    control("cmdOK").Visible(true);
    EXPECT_TRUE(widget("cmdOK").isVisible());
    control("fraEins").Visible(false);
    EXPECT_FALSE(widget("optEins(0)").isVisible());
    EXPECT_TRUE(choice("optEins", 0).Visible());
  });
  EXPECT_TRUE(control("cmdOK").Visible());
}

TEST_F(ControlsTest, CanBeDescribedAsHidden) {
  ControlDescription hidden = button("cmdOptionen", {0, 0, 1000, 345}, "Einstellungen", 0);
  hidden.visible = false;
  make({hidden});
  EXPECT_FALSE(control("cmdOptionen").Visible());
  show([&] { EXPECT_FALSE(widget("cmdOptionen").isVisible()); });
}

TEST_F(ControlsTest, PictureHoldersKeepTheirPictureAndAreNeverSeen) {
  auto& holder = form->control<PictureHolder>("Checked");
  EXPECT_EQ(holder.Picture(), static_cast<PictureHandle>(PictureKind::CheckedBox));
  holder.Visible(true);
  EXPECT_FALSE(holder.Visible());
  show([&] { EXPECT_FALSE(widget("Checked").isVisible()); });
}

TEST_F(ControlsTest, BeginInTheFontOfTheForm) {
  for (const char* name : {"lblUser", "cboUser", "cmdOK", "optEins(0)", "fraEins"}) {
    EXPECT_EQ(widget(name).font().family(), QStringLiteral("Tahoma")) << name;
    EXPECT_EQ(widget(name).font().pixelSize(), 11) << name;
    EXPECT_FALSE(widget(name).font().bold()) << name;
  }
  EXPECT_EQ(window().font().family(), QStringLiteral("Tahoma"));
}

TEST_F(ControlsTest, AFontWithoutSizeKeepsTheSize) {
  control("cmdMore").SetFont({"Arial Narrow", 10, true});
  EXPECT_EQ(widget("cmdMore").font().family(), QStringLiteral("Arial Narrow"));
  EXPECT_EQ(widget("cmdMore").font().pixelSize(), 13);
  EXPECT_TRUE(widget("cmdMore").font().bold());
  control("cmdMore").SetFont({"MS Sans Serif", 0, false});
  EXPECT_EQ(widget("cmdMore").font().family(), QStringLiteral("MS Sans Serif"));
  EXPECT_EQ(widget("cmdMore").font().pixelSize(), 13);
  EXPECT_FALSE(widget("cmdMore").font().bold());
}

TEST_F(ControlsTest, TheFormsFontIsItsOwn) {
  form->SetFont({"MS Sans Serif", 0, false});
  EXPECT_EQ(window().font().family(), QStringLiteral("MS Sans Serif"));
  EXPECT_EQ(window().font().pixelSize(), 11);
  EXPECT_EQ(widget("cmdOK").font().family(), QStringLiteral("Tahoma"));
}

TEST_F(ControlsTest, MissingFontsHaveMetricCompatibleSubstitutes) {
  EXPECT_TRUE(QFont::substitutes(QStringLiteral("Tahoma"))
                  .contains(QStringLiteral("liberation sans"), Qt::CaseInsensitive));
  EXPECT_TRUE(QFont::substitutes(QStringLiteral("MS Sans Serif"))
                  .contains(QStringLiteral("liberation sans"), Qt::CaseInsensitive));
  EXPECT_TRUE(QFont::substitutes(QStringLiteral("Arial Narrow"))
                  .contains(QStringLiteral("liberation sans narrow"), Qt::CaseInsensitive));
}

TEST_F(ControlsTest, TextsSlightlyTooLongForTheirPlaceStillFit) {
  const std::string caption = "Folgende Sonderkreise können noch zusätzlich aktiviert werden:";
  make({described(ControlKind::Label, "lblSonderkreise", {120, 120, 4605, 195}, caption)});
  const auto& label = widget<QLabel>("lblSonderkreise");
  EXPECT_LE(label.fontMetrics().horizontalAdvance(label.text()), label.width() + 1);
  EXPECT_EQ(label.text().toStdString(), caption);
  control("lblSonderkreise").Position({120, 120, 9000, 195});
  EXPECT_EQ(label.font().letterSpacing(), 100);
}

TEST_F(ControlsTest, LabelsWrapWhereTheyHaveRoomForIt) {
  make({described(ControlKind::Label, "lblHigh", {0, 0, 900, 900}, "Zwei Zeilen <b>Text</b>"),
        described(ControlKind::Label, "lblFlat", {0, 1000, 900, 195}, "Eine: Zeile")});
  EXPECT_TRUE(widget<QLabel>("lblHigh").wordWrap());
  EXPECT_FALSE(widget<QLabel>("lblFlat").wordWrap());
  EXPECT_EQ(widget<QLabel>("lblHigh").textFormat(), Qt::PlainText);
  EXPECT_EQ(widget<QLabel>("lblFlat").text(), QStringLiteral("Eine: Zeile"));
}

TEST_F(ControlsTest, FramesShowTheirCaption) {
  EXPECT_EQ(widget<QGroupBox>("fraEins").title(), QStringLiteral("Angebot"));
  EXPECT_EQ(qobject_cast<QGroupBox*>(&widget("fraZwei")), nullptr);
}

TEST_F(ControlsTest, OptionButtonsExcludeEachOtherInTheirFrame) {
  EXPECT_FALSE(choice("optEins", 0).Value());
  choice("optEins", 0).Value(true);
  choice("optZwei", 1).Value(true);
  EXPECT_TRUE(choice("optEins", 0).Value());
  show([&] {
    click(widget("optEins(1)"));
    EXPECT_FALSE(choice("optEins", 0).Value());
    EXPECT_TRUE(choice("optEins", 1).Value());
    EXPECT_TRUE(choice("optZwei", 1).Value());
    QTest::keyClick(&widget("optEins(1)"), Qt::Key_Up);
    EXPECT_TRUE(choice("optEins", 0).Value());
    click(widget("optEins(0)"));
    EXPECT_TRUE(choice("optEins", 0).Value()) << "a user cannot switch one off";
  });
}

TEST_F(ControlsTest, CodeCanSwitchAnOptionOff) {
  choice("optEins", 0).Value(true);
  choice("optEins", 0).Value(false);
  EXPECT_FALSE(choice("optEins", 0).Value());
  EXPECT_FALSE(choice("optEins", 1).Value());
  choice("optEins", 1).Value(true);
  choice("optEins", 0).Value(true);
  EXPECT_FALSE(choice("optEins", 1).Value());
}

TEST_F(ControlsTest, TheFocusGoesByTabIndex) {
  choice("optEins", 0).Value(true);
  choice("optZwei", 0).Value(true);
  Log stops;
  show([&] {
    for (int stop = 0; stop < 6; ++stop) {
      QWidget* focus = QApplication::focusWidget();
      stops.push_back(focus->objectName().toStdString());
      QTest::keyClick(focus, Qt::Key_Tab);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    stops.push_back(QApplication::focusWidget()->objectName().toStdString());
  });
  EXPECT_EQ(stops,
            (Log{"cboUser", "cmdOK", "cmdMore", "optEins(0)", "optZwei(0)", "cboUser", "cboUser"}));
}

TEST_F(ControlsTest, TheFirstFocusSkipsWhatIsHidden) {
  control("cboUser").Visible(false);
  std::string first;
  show([&] { first = QApplication::focusWidget()->objectName().toStdString(); });
  EXPECT_EQ(first, "cmdOK");
}

TEST_F(ControlsTest, ControlsOutsideTheTabOrderNeverHaveTheFocus) {
  make({button("cmdSide", {0, 0, 1000, 345}, "Neben", -1),
        button("cmdOK", {0, 500, 1000, 345}, "OK", 0)});
  bool clicked = false;
  form->control<Button>("cmdSide").OnClick([&] { clicked = true; });
  show([&] {
    click(widget("cmdSide"));
    EXPECT_EQ(QApplication::focusWidget(), &widget("cmdOK"));
  });
  EXPECT_TRUE(clicked);
}

TEST_F(ControlsTest, ToolTipsShowTheirTextAsItIs) {
  const QString text = QStringLiteral("Erste <b>Zeile</b>.\r\nHinweis: \"Benutzer\" & Co.");
  control("cmdOK").ToolTipText(text.toStdString());
  EXPECT_EQ(widget("cmdOK").toolTip(), text);
  show([&] {
    QWidget& place = widget("cmdOK");
    QHelpEvent event(QEvent::ToolTip, QPoint(3, 3), place.mapToGlobal(QPoint(3, 3)));
    QApplication::sendEvent(&place, &event);
    ASSERT_TRUE(QToolTip::isVisible());
    EXPECT_EQ(toolTipText(QToolTip::text()),
              QStringLiteral("Erste <b>Zeile</b>.\nHinweis: \"Benutzer\" & Co."));
    QToolTip::hideText();
  });
}

}  // namespace
}  // namespace vexnumkr::test
