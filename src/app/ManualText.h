// The text of the manual with its pictures.
#pragma once

#include <QTextBrowser>
#include <QTimer>
#include <vector>

namespace corvan {

/// Shows a Markdown file, whose pictures lie beside it; no picture is wider than the window or than it was made.
class ManualText : public QTextBrowser {
 public:
  struct Heading {
    QString text;
    int level;  ///< 1 for the title
    int block;  ///< number of its block in the document
  };

  ManualText();

  void apri(const QString& file);
  const std::vector<Heading>& titoli() const { return headings_; }
  /// Puts a heading at the top of the window, or as high as the end of the text lets it stand.
  /// @param heading index in titoli()
  void vai(std::size_t heading);
  /// Goes to the heading that an address "#another-gps" means. @return false if there is none
  bool vai(const QString& fragment);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  void componi();
  void misuraFigure();
  int primaPosizione() const;
  void mostraDa(int position);

  QString folder_;
  QString markdown_;
  std::vector<Heading> headings_;
  std::vector<QUrl> pictures_;
  QTimer resized_;
  int top_ = 0;  ///< the place in the text that stood at the top before it was laid out anew
  bool composing_ = false;
};

}  // namespace corvan
