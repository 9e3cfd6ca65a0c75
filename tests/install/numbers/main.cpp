// Ends with 0 when the library works and its errors are caught as what they are.
#include <vexnumkr/adapters.h>
#include <vexnumkr/number_masks.h>
#include <vexnumkr/numbers.h>

int main() {
  try {
    vexnumkr::numbers::draw(*vexnumkr::createQtSqlConnection(), {});
  } catch (const vexnumkr::Error&) {
    return vexnumkr::textToLong("1.000") == 1000 ? 0 : 1;
  }
  return 1;
}
