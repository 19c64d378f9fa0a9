// The list "File1": the files of one folder in the order in which they are read.
#pragma once

#include <functional>
#include <QDateTime>
#include <QFileSystemWatcher>
#include <QListWidget>
#include <QTimer>
#include <vector>

namespace corvan {

/// Shows the names in numeric order until rows are dragged; the order shown is the order of reading. Follows the
/// folder as files appear and vanish, and keeps selection and dragged order over every new listing of it.
class FileList : public QListWidget {
 public:
  /// @param read runs on Enter and double click, with at least one file selected
  explicit FileList(std::function<void()> read);

  /// Shows the files of a folder. The folder shown already is listed anew. One that cannot be listed shows one
  /// disabled row that says why, and is tried again every second.
  void apri(const QString& folder);
  /// Lists the folder anew at once.
  void aggiorna();
  /// The selected files with their folder, in the order shown.
  QStringList scelti() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void startDrag(Qt::DropActions actions) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Row {
    QString name;
    bool selected;
  };

  std::vector<Row> righe() const;
  void mostra(const std::vector<Row>& rows);
  void mostraGuasto(const QString& reason);
  void guarda();
  void leggi();
  void puntaRiga(const QPoint& pointer);
  void sposta(int row);
  void posa();

  std::function<void()> read_;
  QString folder_;
  std::vector<Row> lost_;  ///< the rows of a folder that cannot be listed now, for when it comes back
  bool failed_ = false;
  bool carrying_ = false;  ///< the selected rows hang on the mouse
  int target_ = 0;         ///< the row above which they would be put
  QFileSystemWatcher watcher_;
  QTimer soon_;        ///< gathers the many changes that one copying makes
  QTimer again_;       ///< looks for changes that the watcher is not told of
  QDateTime changed_;  ///< the folder's time of change when it was listed
};

}  // namespace corvan
