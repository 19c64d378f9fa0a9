// The port through which the program asks and tells: message boxes, input boxes and the progress of long work.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace corvan {

enum class Buttons { Ok, OkCancel };
enum class Answer { Ok, Cancel };

struct MessageRequest {
  std::string text;
  std::string title;
  Buttons buttons = Buttons::Ok;
};

struct InputRequest {
  std::string prompt;
  std::string title;
  std::string defaultAnswer;
};

/// One step of a long batch: `done` of `total` files are finished and `subject` is at work.
struct ProgressStep {
  std::string subject;
  std::size_t done = 0;
  std::size_t total = 0;
};

/// Answered by the window with its boxes, by the command line from its options, by tests from a script.
class Dialogs {
 public:
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;
  virtual ~Dialogs() = default;

  virtual Answer MsgBox(const MessageRequest& request) = 0;
  /// @return the text entered, which may be empty; nothing for Cancel
  virtual std::optional<std::string> InputBox(const InputRequest& request) = 0;
  virtual void Avanzamento(const ProgressStep& step) { static_cast<void>(step); }
};

}  // namespace corvan
