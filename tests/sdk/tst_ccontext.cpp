#include <appcore/appcoreconstants.h>
#include <appcore/ccontext.h>

#include <QVariant>
#include <QtTest>

using Core::CId;
using Plugin::AppCore::CContext;
namespace Constants = Plugin::AppCore::Constants;

namespace {

QStringList texts(const CContext& context)
{
    QStringList result;
    for (const CId& id : context.ids()) {
        result.append(id.toString());
    }
    return result;
}

} // namespace

class TestCContext : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldBeEmptyWhenDefaultConstructed()
    {
        const CContext context;
        QVERIFY(context.isEmpty());
        QCOMPARE(context.size(), 0);
        QVERIFY(!context.contains(CId(Constants::C_GLOBAL_CONTEXT)));
    }

    void shouldHoldTheIdItWasMadeWith()
    {
        const CContext context(CId(Constants::C_GLOBAL_CONTEXT));
        QVERIFY(context.contains(CId("AppCore.Global.Context")));
        QVERIFY(!context.contains(CId("Nodescope.Widget.All")));
        QCOMPARE(texts(context), QStringList{QStringLiteral("AppCore.Global.Context")});
    }

    void shouldKeepOrderAndDropDuplicatesAndInvalidIds()
    {
        CContext context{CId("b"), CId("a"), CId("b")};
        context.add(CId());
        context.add(CId("c"));
        context.add(CId("a"));

        QCOMPARE(texts(context), QStringList({"b", "a", "c"}));
        QCOMPARE(context.size(), 3);
    }

    void shouldMergeAnotherContext()
    {
        CContext context{CId("a"), CId("b")};
        context.add(CContext{CId("b"), CId("c")});
        QCOMPARE(texts(context), QStringList({"a", "b", "c"}));
    }

    void shouldCompareIdsInOrder()
    {
        QVERIFY(CContext({CId("a"), CId("b")}) == CContext({CId("a"), CId("b")}));
        QVERIFY(!(CContext({CId("a"), CId("b")}) != CContext({CId("a"), CId("b")})));
        QVERIFY(CContext({CId("a"), CId("b")}) != CContext({CId("b"), CId("a")}));
        QVERIFY(CContext(CId("a")) != CContext());
        QVERIFY(CContext() == CContext());
    }

    void shouldTravelInQVariant()
    {
        const CContext context(CId(Constants::C_GLOBAL_CONTEXT));
        const QVariant variant = QVariant::fromValue(context);
        QCOMPARE(variant.value<CContext>(), context);
    }
};

QTEST_GUILESS_MAIN(TestCContext)
#include "tst_ccontext.moc"
