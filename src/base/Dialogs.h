// The port through which the program asks and tells: message boxes, input boxes and the progress of long work.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/Question.h"

namespace corvan {

enum class Answer { Ok, Cancel };

/// A question as it is put; its text and title are those of the table.
struct MessageRequest {
  Question question;
  std::string details = {};  ///< what stands below the text: files, measurements, values; may hold several lines
};

struct InputRequest {
  Question question;
  std::string defaultAnswer = {};
  std::string details = {};
  std::int32_t number = 0;       ///< of the connection that is asked for
  std::int32_t measurement = 0;  ///< the measurement that it connects
};

/// The text of a box without its details.
std::string PromptDi(const MessageRequest& request);
std::string PromptDi(const InputRequest& request);
std::string TitoloDi(const InputRequest& request);

/// One step of long work: `done` of `total` files are finished and `subject` is at work. An empty subject: it is over.
struct ProgressStep {
  enum class Work { Reading, Writing };

  Work work = Work::Reading;
  std::string subject;
  std::size_t done = 0;
  std::size_t total = 0;
  double share = 0;  ///< of the file at work that is done, 0 to 1; 0 where nobody knows
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
  /// @return false when the user gives the work up
  virtual bool Avanzamento(const ProgressStep& step) {
    static_cast<void>(step);
    return true;
  }
};

}  // namespace corvan
