#include "app/components/booking_circle_editor.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <vexnumkr/value.h>

namespace vexnumkr::app {
namespace {

QString numberText(std::int32_t number) {
  return number == 0 ? QString() : QString::number(number);
}

}  // namespace

BookingCircleEditor::BookingCircleEditor(const std::vector<BookingCircle>& present, QWidget* parent)
    : QDialog(parent), present_(present), isNew_(true) {
  build(QStringLiteral("Neuer Buchungskreis"));
  number_->setText(numberText(proposedNumber(present)));
  check();
}

BookingCircleEditor::BookingCircleEditor(const BookingCircle& circle,
                                         const std::vector<BookingCircle>& present, QWidget* parent)
    : QDialog(parent), present_(present), isNew_(false) {
  build(QStringLiteral("Buchungskreis umbenennen"));
  number_->setText(QString::number(circle.number));
  number_->setEnabled(false);
  description_->setText(QString::fromStdString(circle.description));
  description_->selectAll();
  check();
}

void BookingCircleEditor::build(const QString& title) {
  setObjectName(QStringLiteral("frmBuchungskreis"));
  setWindowTitle(title);
  if (parentWidget() != nullptr) setFont(parentWidget()->font());

  number_ = new QLineEdit(this);
  number_->setObjectName(QStringLiteral("txtNummer"));
  description_ = new QLineEdit(this);
  description_->setObjectName(QStringLiteral("txtBeschreibung"));
  description_->setMinimumWidth(description_->fontMetrics().averageCharWidth() * 36);
  hint_ = new QLabel(this);
  hint_->setObjectName(QStringLiteral("lblHinweis"));
  hint_->setWordWrap(true);
  hint_->setMinimumHeight(hint_->fontMetrics().lineSpacing() * 2);
  hint_->setAlignment(Qt::AlignLeft | Qt::AlignTop);

  auto* fields = new QFormLayout;
  fields->addRow(QStringLiteral("&Nummer:"), number_);
  fields->addRow(QStringLiteral("&Beschreibung:"), description_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  ok_->setObjectName(QStringLiteral("cmdOK"));
  ok_->setText(QStringLiteral("OK"));
  QPushButton* cancel = buttons->button(QDialogButtonBox::Cancel);
  cancel->setObjectName(QStringLiteral("cmdCancel"));
  cancel->setText(QStringLiteral("Abbrechen"));
  for (QPushButton* each : {ok_, cancel}) each->setIcon({});  // as everywhere in the dialogs

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(fields);
  layout->addWidget(hint_);
  layout->addWidget(buttons);

  description_->setFocus();
  connect(number_, &QLineEdit::textChanged, this, &BookingCircleEditor::check);
  connect(description_, &QLineEdit::textChanged, this, &BookingCircleEditor::check);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QString BookingCircleEditor::refusal() const {
  const std::string number = number_->text().toStdString();
  std::string refused = isNew_ ? refusedNumber(number, present_) : std::string();
  if (refused.empty()) {
    refused = refusedDescription(description_->text().toStdString(),
                                 isNew_ ? 0 : circleNumber(number), present_);
  }
  return QString::fromStdString(refused);
}

void BookingCircleEditor::check() {
  const QString refused = refusal();
  // Nobody is told off for what he has not come to yet.
  const bool untouched = isNew_ && !number_->isModified() && !description_->isModified();
  hint_->setText(untouched ? QString() : refused);
  ok_->setEnabled(refused.isEmpty());
}

BookingCircle BookingCircleEditor::entered() const {
  const std::string description = description_->text().toStdString();
  return {circleNumber(number_->text().toStdString()), std::string(trimBlanks(description))};
}

}  // namespace vexnumkr::app
