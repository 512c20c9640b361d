#include <core/cid.h>

#include <QHash>
#include <QSet>
#include <QVariant>
#include <QtTest>

using Core::CId;

class TestCId : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldBeInvalidWhenDefaultConstructed()
    {
        const CId id;
        QVERIFY(!id.isValid());
        QCOMPARE(id.toString(), QString());
    }

    void shouldKeepTextFromCharAndString()
    {
        const CId fromChar("Nodescope.Widget.All");
        const CId fromString(QStringLiteral("Nodescope.Widget.All"));
        QVERIFY(fromChar.isValid());
        QCOMPARE(fromChar.toString(), QStringLiteral("Nodescope.Widget.All"));
        QCOMPARE(fromChar, fromString);
    }

    void shouldDecodeUtf8()
    {
        const CId id("Plugin.K\xc3\xa4mera");
        QCOMPARE(id.toString(), QStringLiteral("Plugin.K") + QChar(0xe4) + QStringLiteral("mera"));
    }

    void shouldJoinThreePartsWithDots()
    {
        const CId id(QStringLiteral("Plugin"), QStringLiteral("Nodescope"),
                     QStringLiteral("Factory User Features 0"));
        QCOMPARE(id.toString(), QStringLiteral("Plugin.Nodescope.Factory User Features 0"));
        QCOMPARE(id, CId("Plugin.Nodescope.Factory User Features 0"));
    }

    void shouldCompareByText()
    {
        const CId a("Nodescope.Widget.All");
        const CId b("Nodescope.Widget.Basic");
        QVERIFY(a != b);
        QVERIFY(!(a == b));
        QVERIFY(a < b);
        QVERIFY(!(b < a));
        QVERIFY(!(a < a));
    }

    void shouldWorkAsHashAndSetKey()
    {
        QHash<CId, int> hash;
        hash.insert(CId("VantoViewer.Menu.Camera"), 1);
        hash.insert(CId("VantoViewer.Menu.Window"), 2);
        hash.insert(CId(QStringLiteral("VantoViewer.Menu.Camera")), 3);
        QCOMPARE(hash.size(), 2);
        QCOMPARE(hash.value(CId("VantoViewer.Menu.Camera")), 3);
        QCOMPARE(qHash(CId("x.y")), qHash(CId(QStringLiteral("x.y"))));

        const QSet<CId> set{CId("a"), CId("b"), CId("a")};
        QCOMPARE(set.size(), 2);
    }

    void shouldTravelInQVariant()
    {
        const QVariant variant = QVariant::fromValue(CId("AppCore.Global.Context"));
        QVERIFY(variant.canConvert<CId>());
        QCOMPARE(variant.value<CId>(), CId("AppCore.Global.Context"));
    }
};

QTEST_GUILESS_MAIN(TestCId)
#include "tst_cid.moc"
