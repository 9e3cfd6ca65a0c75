#include <algorithm>
#include <utility>

#include <vexnumkr/numbers.h>

#include "numbers/check/drawable.h"
#include "numbers/failure.h"
#include "numbers/origin.h"
#include "numbers/query.h"
#include "numbers/sql/statements.h"
#include "numbers/transaction.h"

namespace vexnumkr::numbers {
namespace {

// As messages name a range.
std::string rangeName(std::int32_t circle, const std::string& key) {
  return "\"" + key + "\" im Buchungskreis " + std::to_string(circle);
}

std::string circleList(const std::vector<std::int32_t>& circles) {
  std::string text;
  for (const std::int32_t circle : circles)
    text += (text.empty() ? "" : ", ") + std::to_string(circle);
  return text;
}

// An assignment as it is stored, with what decides about its range.
struct Assignment {
  std::int32_t circle = 0;
  Drawable drawable = Drawable::missing;
  std::string sharedKey;
};

// The range whose numbers are drawn.
struct Target {
  std::int32_t circle = 0;
  std::string key;
};

void requireRequest(const DrawRequest& request) {
  if (request.user.empty()) throw invalidCall("Es fehlt der Benutzer.");
  if (request.key.empty()) throw invalidCall("Es fehlt der Nummernschlüssel.");
  if (request.count < 1)
    throw invalidCall("Es muss mindestens eine Nummer sein, nicht " +
                      std::to_string(request.count) + ".");
}

bool flagOf(const Recordset& row, const char* field) {
  const Value value = row.Fields(field);
  return !value.isNull() && value.toBoolean();
}

// What the row holds of a range, by the names of its fields.
struct UseFields {
  const char* key;
  const char* active;
  const char* special;
  const char* switchedOn;
};

// In the circle 0 every range is active, whatever is stored. Keys are compared once more, since
// engines may do it loosely.
std::optional<RangeUse> useOf(const Recordset& row, std::int32_t circle, const std::string& key,
                              const UseFields& fields) {
  if (row.Fields(fields.key).isNull() || textOf(row, fields.key) != key) return std::nullopt;
  return RangeUse{
      .isActive = circle == 0 || flagOf(row, fields.active),
      .isSwitchedOff = textOf(row, fields.special) == key && !flagOf(row, fields.switchedOn)};
}

Assignment read(const Recordset& row, const std::string& key) {
  Assignment found;
  found.circle = row.Fields("Kreis").toLong();
  found.sharedKey = textOf(row, "IstNSchlVon");
  const auto range =
      useOf(row, found.circle, key, {"Bereich", "Aktiviert", "Sonderkreis", "Eingeschaltet"});
  const auto shared =
      useOf(row, found.circle, found.sharedKey,
            {"Gemeinsam", "GemeinsamAktiviert", "GemeinsamSonderkreis", "GemeinsamEingeschaltet"});
  found.drawable = drawableOf(range, !found.sharedKey.empty(), shared);
  return found;
}

// Those of the user, and where there are none those of everybody; each circle once. Engines may
// compare texts loosely, so what they find is compared once more.
std::vector<Assignment> assignmentsFor(Connection& connection, const DrawRequest& request) {
  std::vector<Assignment> own;
  std::vector<Assignment> common;
  const auto rows =
      select(connection,
             statement::assignedRanges(Literals(connection), requiredOrigin(request.application),
                                       request.user, request.key, request.circle));
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    if (textOf(*rows, "Schluessel") != request.key) continue;
    const std::string user = textOf(*rows, "Benutzer");
    if (user == request.user) own.push_back(read(*rows, request.key));
    if (user == everybody) common.push_back(read(*rows, request.key));
  }
  rows->Close();
  std::vector<Assignment>& deciding = own.empty() ? common : own;
  const auto byCircle = [](const Assignment& a, const Assignment& b) {
    return a.circle < b.circle;
  };
  std::stable_sort(deciding.begin(), deciding.end(), byCircle);
  const auto same = [](const Assignment& a, const Assignment& b) { return a.circle == b.circle; };
  deciding.erase(std::unique(deciding.begin(), deciding.end(), same), deciding.end());
  return std::move(deciding);
}

DrawError notAssigned(const DrawRequest& request) {
  const std::string where =
      request.circle ? " im Buchungskreis " + std::to_string(*request.circle) : std::string();
  return {DrawFailure::notAssigned,
          "Dem Benutzer \"" + request.user + "\" ist für \"" + request.key +
              "\" kein Nummernkreis" + where +
              " zugeordnet. Bitte ordnen Sie ihm im Dialog \"Nummernkreise\" einen zu."};
}

DrawError ambiguous(const DrawRequest& request, const std::vector<Assignment>& found) {
  std::vector<std::int32_t> circles;
  for (const Assignment& assignment : found) circles.push_back(assignment.circle);
  return {DrawFailure::ambiguous,
          "Für den Benutzer \"" + request.user + "\" kommen für \"" + request.key +
              "\" mehrere Buchungskreise in Frage (" + circleList(circles) +
              "). Bitte geben Sie einen davon an.",
          circles};
}

// Those to draw from; where there are none, the first alone, which tells why.
std::vector<Assignment> usable(std::vector<Assignment> found) {
  const auto isUsable = [](const Assignment& one) { return one.drawable == Drawable::yes; };
  if (std::any_of(found.begin(), found.end(), isUsable))
    std::erase_if(found, [&](const Assignment& one) { return !isUsable(one); });
  else
    found.erase(found.begin() + 1, found.end());
  return found;
}

void requireDrawable(const Assignment& assignment, const std::string& key) {
  const std::string name = "Der Nummernkreis " + rangeName(assignment.circle, key);
  const std::string shared = "Der Nummernkreis " +
                             rangeName(assignment.circle, assignment.sharedKey) + ", aus dem \"" +
                             key + "\" zieht,";
  switch (assignment.drawable) {
    case Drawable::yes:
      return;
    case Drawable::missing:
      throw DrawError(DrawFailure::rangeMissing, name + " ist zugeordnet, aber nicht gespeichert.");
    case Drawable::inactive:
      throw DrawError(DrawFailure::rangeInactive, name + " ist zugeordnet, aber nicht aktiviert.");
    case Drawable::switchedOff:
      throw DrawError(DrawFailure::rangeInactive,
                      name + " ist zugeordnet, aber sein Sonderkreis ist ausgeschaltet.");
    case Drawable::sharedMissing:
      throw DrawError(DrawFailure::rangeMissing, shared + " ist nicht gespeichert.");
    case Drawable::sharedInactive:
      throw DrawError(DrawFailure::rangeInactive, shared + " ist nicht aktiviert.");
  }
}

Target targetOf(Connection& connection, const DrawRequest& request) {
  std::vector<Assignment> found = assignmentsFor(connection, request);
  if (found.empty()) throw notAssigned(request);
  found = usable(std::move(found));
  if (found.size() > 1) throw ambiguous(request, found);
  const Assignment& assignment = found.front();
  requireDrawable(assignment, request.key);
  return {assignment.circle, assignment.sharedKey.empty() ? request.key : assignment.sharedKey};
}

// Says why a range has not issued the numbers.
[[noreturn]] void refuse(const Target& target, std::int32_t count, const Recordset& row) {
  const std::string name = "Der Nummernkreis " + rangeName(target.circle, target.key);
  if (row.EndOfFile()) throw DrawError(DrawFailure::rangeMissing, name + " ist nicht gespeichert.");
  const Value start = row.Fields("StartWert");
  const Value current = row.Fields("AktuellerWert");
  const Value end = row.Fields("EndWert");
  if (start.isNull() || current.isNull() || end.isNull())
    throw DrawError(DrawFailure::rangeBroken, name + " hat keine vollständigen Werte.");
  if (start.toLong() > current.toLong() || current.toLong() > end.toLong())
    throw DrawError(DrawFailure::rangeBroken, name + " ist fehlerhaft: Der aktuelle Wert " +
                                                  current.toText() + " liegt nicht zwischen " +
                                                  start.toText() + " und " + end.toText() + ".");
  const std::int64_t left = std::int64_t{end.toLong()} - current.toLong();
  if (left == 0)
    throw DrawError(DrawFailure::exhausted,
                    name + " ist erschöpft: Die letzte Nummer " + end.toText() + " ist vergeben.");
  if (left < count)
    throw DrawError(DrawFailure::exhausted, name + " hat nur noch " + std::to_string(left) +
                                                " von " + std::to_string(count) +
                                                " verlangten Nummern.");
  throw Error(error_number::changedMeanwhile, "vexnumkr",
              name +
                  " wurde soeben an anderer Stelle geändert. Bitte versuchen Sie es noch "
                  "einmal.");
}

// REQUIRES: a transaction. The change locks the range, so what is read back is its own.
Draw issue(Connection& connection, const Target& target, std::int32_t count) {
  const Literals literals(connection);
  const std::int32_t changed =
      execute(connection, statement::issueNumbers(literals, target.circle, target.key, count));
  const auto row = select(connection, statement::rangeValues(literals, target.circle, target.key));
  if (changed != 1 || row->EndOfFile()) refuse(target, count, *row);
  Draw draw{.circle = target.circle, .key = target.key};
  draw.last = row->Fields("AktuellerWert").toLong();
  draw.first = draw.last - (count - 1);
  draw.startValue = row->Fields("StartWert").toLong();
  draw.endValue = row->Fields("EndWert").toLong();
  row->Close();
  return draw;
}

// The assignment is read before the transaction begins, so that this is as short as can be.
Draw drawAlone(Connection& connection, const DrawRequest& request, Ending ending) {
  requireRequest(request);
  Draw draw;
  whileLocked([&] {
    const Target target = targetOf(connection, request);
    inTransaction(connection, ending, [&] { draw = issue(connection, target, request.count); });
  });
  return draw;
}

}  // namespace

DrawError::DrawError(DrawFailure failure, const std::string& description,
                     std::vector<std::int32_t> circles)
    : Error(static_cast<std::int32_t>(failure), "vexnumkr", description),
      circles_(std::move(circles)) {}

Draw draw(Connection& connection, const DrawRequest& request) {
  return drawAlone(connection, request, Ending::commit);
}

Draw tryDraw(Connection& connection, const DrawRequest& request) {
  return drawAlone(connection, request, Ending::rollBack);
}

Draw drawInTransaction(Connection& connection, const DrawRequest& request) {
  requireRequest(request);
  execute(connection, statement::takeWriteLock());
  return issue(connection, targetOf(connection, request), request.count);
}

}  // namespace vexnumkr::numbers
