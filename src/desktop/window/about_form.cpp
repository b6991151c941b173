#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "desktop/look/headings.h"
#include "desktop/look/shown_text.h"
#include "desktop/window/pane_form.h"

namespace tarvok::desktop {
namespace {

constexpr const char* kText =
    "Made by a small team of engineers for everybody who configures exchanges.\n"
    "The program never calls home; your projects are your files.\n"
    "\n"
    "Version History :\n"
    "2.36  All five transports, sending with a comparison of bytes, practice exchange.\n";

}  // namespace

QWidget* MakeAboutPage(const DesktopParts& parts, const std::function<void()>& close_form) {
  auto* page = new QWidget;
  page->setObjectName(QStringLiteral("frmAbout"));
  page->setAccessibleName(QStringLiteral("About"));
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(24, 24, 24, 24);
  layout->addWidget(MakeHeading(new QLabel(QStringLiteral("Tarvok Setup Program")), 1.7));
  auto* text = new QTextBrowser;
  text->setObjectName(QStringLiteral("AboutText"));
  text->setAccessibleName(QStringLiteral("About the program"));
  text->setFrameShape(QFrame::NoFrame);
  text->setPlainText(QString::fromLatin1(kText) + QLatin1Char('\n') + Words(parts.system_file_line()));
  text->viewport()->setAutoFillBackground(false);
  text->document()->setDocumentMargin(0);
  auto* close = new QPushButton(QStringLiteral("Close"));
  close->setObjectName(QStringLiteral("cmdOK"));
  layout->addSpacing(8);
  layout->addWidget(text, 1);
  layout->addWidget(close, 0, Qt::AlignRight);
  QObject::connect(close, &QPushButton::clicked, page, close_form);
  page->setFocusProxy(close);
  return page;
}

void ShowAbout(const DesktopParts& parts, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("About"));
  dialog.setWindowTitle(QStringLiteral("About"));
  auto* layout = new QVBoxLayout(&dialog);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(MakeAboutPage(parts, [&dialog] { dialog.accept(); }));
  dialog.resize(560, 380);
  dialog.exec();
}

}  // namespace tarvok::desktop
