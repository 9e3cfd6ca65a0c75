// The choices of the options dialog.
#pragma once

#include <span>

#include "platform/forms.h"

namespace vexnumkr {

/// One choice between two ways: a pair of option buttons. The value stored is the index of the
/// chosen button. Keys are read and written in different spellings, as the host's settings store,
/// which does not look at case, has always been used.
struct OptionPair {
  const char* name;  ///< of the option buttons, a control array of two
  const char* caption;
  const char* first;
  const char* second;
  const char* keyRead;     ///< null where the choice is not kept
  const char* keyWritten;  ///< null where the choice is not kept

  bool isKept() const { return keyRead != nullptr; }
};

/// The seven pairs from top to bottom.
std::span<const OptionPair> optionPairs();

/// The description of frmOptionen.
FormDescription optionsDialogDescription();

}  // namespace vexnumkr
