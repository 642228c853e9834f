#include "dialogs/about.h"

#include "widgets/sharppixmap.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// Names in a domain that is reserved for examples; a maker puts its own here.
constexpr char makerSite[] = "varnel.example.com";
constexpr char distributorSite[] = "shop.varnel.example.com";

QLabel *linkLabel(const QString &text, const char *site, QWidget *parent)
{
    const QString name = QString::fromLatin1(site);
    auto *label = new QLabel(parent);
    label->setText(QStringLiteral("%1<br/><a href=\"https://%2/\" style=\"color:#1b5fa8\">%2</a>")
                       .arg(text.toHtmlEscaped(), name));
    label->setAlignment(Qt::AlignCenter);
    label->setOpenExternalLinks(true);
    label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    label->setToolTip(name);
    return label;
}

} // namespace

About::About(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("About"));
    setFixedSize(300, 300);
    auto *picture = new QLabel(this);
    picture->setPixmap(sharpPixmap(QStringLiteral(":/Icons/v2p.png")));
    picture->setAlignment(Qt::AlignCenter);
    picture->setAccessibleName(tr("Picture of a charger"));
    auto *version = new QLabel(tr("Version ") + QCoreApplication::applicationVersion(), this);
    version->setAlignment(Qt::AlignCenter);
    auto *ok = new QPushButton(tr("OK"), this);
    ok->setToolTip(tr("Closes this box."));

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(picture, 1);
    layout->addWidget(linkLabel(tr("Maker"), makerSite, this));
    layout->addWidget(linkLabel(tr("Distributor"), distributorSite, this));
    layout->addWidget(version);
    layout->addWidget(ok);
    setFixedSize(size().expandedTo(minimumSizeHint())); // for larger letters
    connect(ok, SIGNAL(clicked()), this, SLOT(close()));
}

int About::exec(int milliseconds)
{
    QTimer::singleShot(milliseconds, this, SLOT(close()));
    return exec();
}
