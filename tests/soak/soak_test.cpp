// Users who do anything, hosts that draw and open dialogs meanwhile, and engines, disks and servers
// that fail: after every step the tables are a state that somebody has saved.
//
// VEXNUMKR_SEED is the first of the seeds; VEXNUMKR_SOAK_MINUTES goes on with the next ones for
// that long, where it is not set one of a few sessions is all.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "soak/random_user.h"
#include "soak/soak_world.h"

namespace vexnumkr::test {
namespace {

constexpr unsigned firstSeed = 20261125;
constexpr int sessionsPerWorld = 20;

double number(const char* variable, double otherwise) {
  const char* given = std::getenv(variable);
  return given == nullptr ? otherwise : std::atof(given);
}

void report(unsigned seed, const RandomUser& user, const Troubles& all) {
  std::printf(
      "VEXNUMKR_SEED=%u %s: %ld steps, %ld checks, %ld saves; failed: %ld statements, %ld commits, "
      "%ld connections, %ld writes and syncs; %ld servers killed; %ld numbers drawn, %ld second "
      "dialogs, %ld visits to the circles\n",
      seed, engineUnderTest().c_str(), user.steps(), all.checks, all.saves, all.statements,
      all.commits, all.connects, all.disk, all.servers, all.draws, all.secondDialogs, all.circles);
  std::fflush(stdout);
}

void soak(unsigned seed) {
  std::mt19937 random(seed);
  SoakWorld world(random);
  RandomUser user(random, [&] { world.afterStep(); });
  for (int left = sessionsPerWorld; left > 0; --left) {
    world.session();
    world.check();
  }
  // When nothing fails any more, everything works again.
  world.heal();
  const long before = world.troubles().checks;
  world.session();
  world.check();
  EXPECT_GT(world.troubles().checks, before);
  report(seed, user, world.troubles());
}

TEST(SoakTest, WhatIsStoredIsWhatSomebodyHasSaved) {
  const auto seed = static_cast<unsigned>(number("VEXNUMKR_SEED", firstSeed));
  const std::chrono::duration<double> wanted(60 * number("VEXNUMKR_SOAK_MINUTES", 0));
  const auto begun = std::chrono::steady_clock::now();
  unsigned current = seed;
  do {
    SCOPED_TRACE("VEXNUMKR_SEED=" + std::to_string(current));
    soak(current++);
  } while (!testing::Test::HasFailure() && std::chrono::steady_clock::now() - begun < wanted);
}

}  // namespace
}  // namespace vexnumkr::test
