#include "adapters/qtforms/message_box.h"

#include <vexnumkr/message_box.h>

std::int32_t vexnumkr::showMessageBox(const std::string& prompt, std::int32_t style,
                                      const std::string& title) {
  return qtforms::showMessageBox(prompt, style, title);
}
