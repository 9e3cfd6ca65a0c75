// Commands that set the stage: database, host, component, orders to fail.
#include "scenario/driver/stage.h"

namespace vexnumkr::scenario {
namespace {

void sql(Stage& stage, const Command& command) {
  for (const PrintedRow& row : stage.session.database().run(command.argument(0)))
    stage.print("row: " + row);
}

void application(Stage& stage, const Command& command) {
  stage.session.data().application = command.number(0);
}

void user(Stage& stage, const Command& command) { stage.session.data().user = command.argument(0); }

void date(Stage& stage, const Command& command) { stage.session.data().date = command.argument(0); }

void accessInRows(Stage& stage, const Command&) {
  stage.session.data().access = DatabaseAccess::rowByRow;
}

void accessInSets(Stage& stage, const Command&) {
  stage.session.data().access = DatabaseAccess::inSets;
}

void init(Stage& stage, const Command&) {
  stage.requireNoDialog();
  stage.session.createComponent();
  stage.print("init: " + printedFlag(stage.session.init()));
  std::vector<std::string> users;
  for (const std::string& name : stage.session.core().colUser()) users.push_back(printedText(name));
  stage.print("users: " + joined(users));
}

void show(Stage& stage, const Command&) {
  stage.requireNoDialog();
  stage.session.component().ShowDialog();
}

void release(Stage& stage, const Command&) {
  stage.requireNoDialog();
  stage.session.release();
}

void answer(Stage& stage, const Command& command) {
  for (const std::string& word : command.arguments) stage.answers.push_back(word);
}

void hostBookingCircles(Stage& stage, const Command& command) {
  stage.session.host().queueForBookingCircles(command.argument(0));
}

void failStatement(Stage& stage, const Command& command) {
  stage.session.connections().failStatement(command.number(0));
}

void failCommit(Stage& stage, const Command&) { stage.session.connections().failCommit(); }

void failConnect(Stage& stage, const Command&) { stage.session.connections().failConnect(); }

void failComponent(Stage& stage, const Command& command) {
  stage.session.host().withhold(command.argument(0));
}

}  // namespace

Handlers sessionHandlers() {
  return {{"sql", sql},
          {"application", application},
          {"user", user},
          {"date", date},
          {"access rows", accessInRows},
          {"access sets", accessInSets},
          {"init", init},
          {"show", show},
          {"release", release},
          {"answer", answer},
          {"host buchungskreise", hostBookingCircles},
          {"fail statement", failStatement},
          {"fail commit", failCommit},
          {"fail connect", failConnect},
          {"fail component", failComponent}};
}

}  // namespace vexnumkr::scenario
