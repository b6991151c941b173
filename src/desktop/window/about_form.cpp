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

std::unique_ptr<Form> MakeAboutForm(PaneHost& host, const FormContext& context,
                                    const std::string& system_file_line) {
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
  text->setPlainText(QString::fromLatin1(kText) + QLatin1Char('\n') + Words(system_file_line));
  text->viewport()->setAutoFillBackground(false);
  text->document()->setDocumentMargin(0);
  auto* close = new QPushButton(QStringLiteral("Close"));
  close->setObjectName(QStringLiteral("cmdOK"));
  layout->addSpacing(8);
  layout->addWidget(text, 1);
  layout->addWidget(close, 0, Qt::AlignRight);
  QObject::connect(close, &QPushButton::clicked, page, context.closed);
  page->setFocusProxy(close);
  return std::make_unique<PaneForm>(host, "frmAbout", page);
}

}  // namespace tarvok::desktop
