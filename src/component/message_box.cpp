#include "adapters/qtforms/message_box.h"

#include <vexnumkr/message_box.h>

#include "component/process.h"

std::int32_t vexnumkr::showMessageBox(const std::string& prompt, std::int32_t style,
                                      const std::string& title) {
  requireDialogThread();
  stayLoaded();
  return qtforms::showMessageBox(prompt, style, title);
}
