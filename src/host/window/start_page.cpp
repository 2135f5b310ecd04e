#include "host/window/start_page.h"

#include <QDir>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/tool_tips.h"

namespace rulemesh {

StartPage::StartPage(const QStringList& recent, const QStringList& captions, QWidget* parent) : QWidget(parent)
{
    auto* icon = new QLabel;
    icon->setPixmap(QIcon(QStringLiteral(":/rulemesh/128.png")).pixmap(96, 96));
    icon->setAlignment(Qt::AlignCenter);
    auto* hint = new QLabel(QStringLiteral("Open a mapping object or make a new one.\nYou can also drop a file here."));
    hint->setAlignment(Qt::AlignCenter);

    auto* newObject = new QPushButton(QStringLiteral("&New..."));
    auto* open = new QPushButton(QStringLiteral("&Open..."));
    connect(newObject, &QPushButton::clicked, this, &StartPage::NewWanted);
    connect(open, &QPushButton::clicked, this, &StartPage::OpenWanted);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(newObject);
    buttons->addWidget(open);
    buttons->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->addStretch();
    layout->addWidget(icon);
    layout->addSpacing(12);
    layout->addWidget(hint);
    layout->addSpacing(12);
    layout->addLayout(buttons);
    layout->addSpacing(12);
    for (qsizetype at = 0; at < recent.size(); ++at) {
        QString caption = captions[at];
        auto* file = new QPushButton(caption.replace(u'&', QStringLiteral("&&")));
        file->setFlat(true);
        file->setCursor(Qt::PointingHandCursor);
        file->setToolTip(PlainToolTip(QDir::toNativeSeparators(recent[at])));
        connect(file, &QPushButton::clicked, this, [this, path = recent[at]] { emit FileWanted(path); });
        layout->addWidget(file, 0, Qt::AlignHCenter);
    }
    layout->addStretch();
    setAcceptDrops(false); // the window takes what is dropped
}

} // namespace rulemesh
