#include "dialogs/about.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// Addresses of a domain that is reserved for examples; a maker puts its own here.
constexpr char makerSite[] = "https://varnel.example.com/";
constexpr char distributorSite[] = "https://shop.varnel.example.com/";

QLabel *linkLabel(const QString &text, const char *address, QWidget *parent)
{
    const QString site = QString::fromLatin1(address);
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::RichText);
    label->setText(QStringLiteral("%1<br/><a href=\"%2\">%2</a>").arg(text.toHtmlEscaped(), site));
    label->setToolTip(site);
    label->setAlignment(Qt::AlignCenter);
    label->setOpenExternalLinks(true);
    return label;
}

} // namespace

About::About(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("About"));
    setFixedSize(300, 300);
    auto *picture = new QLabel(this);
    picture->setPixmap(QPixmap(QStringLiteral(":/Icons/v2p.png")));
    picture->setAlignment(Qt::AlignCenter);
    auto *version = new QLabel(tr("Version ") + QStringLiteral("V4.60"), this);
    version->setAlignment(Qt::AlignCenter);
    auto *ok = new QPushButton(tr("OK"), this);
    ok->setDefault(true);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(picture, 1);
    layout->addWidget(linkLabel(tr("Maker"), makerSite, this));
    layout->addWidget(linkLabel(tr("Distributor"), distributorSite, this));
    layout->addWidget(version);
    layout->addWidget(ok);
    connect(ok, SIGNAL(clicked()), this, SLOT(close()));
}

int About::exec(int milliseconds)
{
    QTimer::singleShot(milliseconds, this, SLOT(close()));
    return exec();
}
