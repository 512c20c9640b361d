#include "featuresetcomparemodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

using Backend::FeatureSet;
using VantoViewer::FeatureSetCompareModel;

class tst_FeatureSetCompareModel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldShowOneRowPerDifferenceWithTheSideThatAloneHasIt();
    void shouldTitleTheValueColumnsWithTheSides();
    void shouldResetWhenGivenNewDifferences();
};

namespace {

QVector<FeatureSet::Difference> differences()
{
    using Side = FeatureSet::Difference::Side;
    return {
        {QStringLiteral("Gain [GainSelector = AnalogAll]"), QStringLiteral("Gain"),
         QStringLiteral("3.5"), QStringLiteral("0"), Side::Both},
        {QStringLiteral("Height"), QStringLiteral("Height"), QStringLiteral("480"), QString(),
         Side::LeftOnly},
        {QStringLiteral("ReverseX"), QStringLiteral("ReverseX"), QString(), QStringLiteral("true"),
         Side::RightOnly},
    };
}

QStringList rowTexts(const QAbstractItemModel& model)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column) {
            cells << model.index(row, column).data().toString();
        }
        rows << cells.join(QLatin1Char('|'));
    }
    return rows;
}

} // namespace

void tst_FeatureSetCompareModel::shouldShowOneRowPerDifferenceWithTheSideThatAloneHasIt()
{
    FeatureSetCompareModel model;
    new QAbstractItemModelTester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest,
                                 &model);
    model.setDifferences(differences(), QStringLiteral("Lab"), QStringLiteral("line.txt"));
    QCOMPARE(rowTexts(model), (QStringList{QStringLiteral("Gain [GainSelector = AnalogAll]|3.5|0|"),
                                           QStringLiteral("Height|480||Lab"),
                                           QStringLiteral("ReverseX||true|line.txt")}));
    QCOMPARE(model.index(0, 0).data(FeatureSetCompareModel::FeatureNameRole).toString(),
             QStringLiteral("Gain"));
}

void tst_FeatureSetCompareModel::shouldTitleTheValueColumnsWithTheSides()
{
    FeatureSetCompareModel model;
    new QAbstractItemModelTester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest,
                                 &model);
    model.setDifferences(differences(), QStringLiteral("Lab"), QStringLiteral("Line"));
    QStringList headers;
    for (int column = 0; column < model.columnCount(); ++column) {
        headers << model.headerData(column, Qt::Horizontal).toString();
    }
    QCOMPARE(headers, (QStringList{QStringLiteral("Feature"), QStringLiteral("Lab"),
                                   QStringLiteral("Line"), QStringLiteral("Only In")}));
}

void tst_FeatureSetCompareModel::shouldResetWhenGivenNewDifferences()
{
    FeatureSetCompareModel model;
    new QAbstractItemModelTester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest,
                                 &model);
    model.setDifferences(differences(), QStringLiteral("A"), QStringLiteral("B"));
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    model.setDifferences({}, QStringLiteral("A"), QStringLiteral("B"));
    QCOMPARE(reset.count(), 1);
    QCOMPARE(model.rowCount(), 0);
}

QTEST_GUILESS_MAIN(tst_FeatureSetCompareModel)
#include "tst_featuresetcomparemodel.moc"
