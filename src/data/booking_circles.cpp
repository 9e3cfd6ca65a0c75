#include "data/booking_circles.h"

#include "data/query.h"
#include "data/sql/statements.h"
#include "data/table/columns.h"
#include "hosting/reporting.h"

namespace vexnumkr::basAllgemein {
namespace {

constexpr std::int32_t administration = 27;  // what the host's library calls this selection

std::int32_t find(const XArray& list, std::int32_t columnNumber, const Value& value) {
  return list.Find(list.LowerBound(1), columnNumber, value);
}

void append(XArray& list, std::int32_t circle, const std::string& caption) {
  list.AppendRows();
  const std::int32_t row = list.UpperBound(1);
  list.set(row, circle_column::Buchungskreis, circle);
  list.set(row, circle_column::Beschreibung, caption);
}

}  // namespace

void RefreshCombo(HostContext& context, ComboBox* combo) {
  reportingFailures(context, {moduleName, "RefreshCombo"}, [&] {
    const auto circles = query(context.cmdSQL(), statement::bookingCircles(context.Herkunft()));
    if (combo != nullptr) {
      combo->Clear();
      combo->AddItem(alleBuchungskreise);
      combo->AddItem(aktiveBuchungskreise);
    }
    context.Buchungskreise(
        std::make_unique<XArray>(XArray::withColumns(circle_column::Beschreibung)));
    for (; !circles->EndOfFile(); circles->MoveNext()) {
      const std::int32_t circle = circles->Fields("Buchungskreis").toLong();
      const std::string caption = circles->Fields("Beschreibung").toText();
      if (combo != nullptr) combo->AddItem(caption);
      append(context.Buchungskreise(), circle, caption);
    }
    circles->Close();
  });
}

Value LookupBuchungskreis(HostContext& context, std::int16_t column, const Value& value) {
  Value result(std::int32_t{-1});
  reportingFailures(context, {moduleName, "LookupBuchungskreis"}, [&] {
    const XArray& list = context.Buchungskreise();
    const std::int32_t otherColumn = column == circle_column::Buchungskreis
                                         ? circle_column::Beschreibung
                                         : circle_column::Buchungskreis;
    const std::int32_t row = find(list, otherColumn, value);
    if (row != -1) result = list.get(row, column);
  });
  return result;
}

bool CallBuchungskreise(HostContext& context, const std::string& origin) {
  bool returned = false;
  reportingFailures(context, {moduleName, "CallBuchungskreise"}, [&] {
    context.dlgBuchungskreise().Show(origin, administration);
    returned = true;
  });
  return returned;
}

bool isListedCircle(HostContext& context, std::int32_t circle) {
  return find(context.Buchungskreise(), circle_column::Buchungskreis, circle) != -1;
}

}  // namespace vexnumkr::basAllgemein
