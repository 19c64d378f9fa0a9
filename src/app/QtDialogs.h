// Asks and tells with the desktop's own boxes.
#pragma once

#include "base/Dialogs.h"

namespace corvan {

/// Modal boxes over the active window; Enter takes the default button, Escape cancels.
class QtDialogs : public Dialogs {
 public:
  Answer MsgBox(const MessageRequest& request) override;
  std::optional<std::string> InputBox(const InputRequest& request) override;
};

}  // namespace corvan
