// The desktop's dialogs for opening and saving files.
#pragma once

#include <QString>
#include <QStringList>

namespace corvan {

/// Set what the dialog shall show, call FOpen or FSave, read what was chosen. A cancelled dialog leaves all as it was.
/// The interface is kept whole: nothing calls GetFileNames, GetFileTitles and Tag yet.
class SaveOpen {
 public:
  SaveOpen();

  QString DialogTitle;
  QString Filter = "All Files (*.*)";  ///< several are joined by ";;"
  int FilterN = 1;                     ///< which of them is chosen, from 1
  QString IDir;                        ///< folder in which the dialog starts
  QString FileName;                    ///< the first chosen file, with its folder
  QString FileTitle;                   ///< the same without folder
  QString Tag;                         ///< free for the caller

  bool FOpen();  ///< lets several existing files be chosen; false for Cancel
  /// Lets one name be given, with FileName proposed; asks before one that is there is taken. A name without an ending
  /// gets that of the chosen filter.
  bool FSave();

  QString FRoot() const { return root_; }  ///< folder of the chosen files, ending in the separator
  int nFiles() const { return static_cast<int>(titles_.size()); }
  QStringList GetFileNames() const;  ///< with their folder
  const QStringList& GetFileTitles() const { return titles_; }

 private:
  bool prendi(const QStringList& chosen);

  QString root_;
  QStringList titles_;
};

}  // namespace corvan
