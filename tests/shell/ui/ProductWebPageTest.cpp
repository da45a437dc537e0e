// The product's web page: the connection test first, then the browser, each failure with its box.
#include <QUrl>
#include <QtTest>

#include "shell/ui/ProductWebPage.h"
#include "tests/support/ModalAnswer.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class ProductWebPageTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void offlineNoBrowserAndOpened_data() {
        QTest::addColumn<bool>("online");
        QTest::addColumn<bool>("browserStarts");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("browserStarted");
        QTest::newRow("offline") << false << true << QString::fromLatin1(kMsgNoInternet) << 0;
        QTest::newRow("no browser") << true << false << QString::fromLatin1(kMsgNoBrowser) << 1;
        QTest::newRow("opened") << true << true << QString() << 1;
    }
    void offlineNoBrowserAndOpened() {
        QFETCH(bool, online);
        QFETCH(bool, browserStarts);
        QFETCH(QString, message);
        QFETCH(int, browserStarted);
        QList<QUrl> opened;
        WebPageRoute route{[online] { return online; },
                           [&](const QUrl& url) {
                               opened << url;
                               return browserStarts;
                           }};
        ModalAnswer box;
        openProductWebPage(nullptr, route);
        QCOMPARE(opened.size(), browserStarted);
        if (!opened.isEmpty()) {
            QCOMPARE(opened.first(), QUrl(QString::fromLatin1(kProductWebAddress)));
        }
        QCOMPARE(box.seen, !message.isEmpty());
        if (box.seen) {
            QCOMPARE(box.text, message);
            QCOMPARE(box.caption, u"ERROR"_s);
        }
    }
};

QTEST_MAIN(ProductWebPageTest)
#include "ProductWebPageTest.moc"
