#include "editortestsupport.h"

#include "internal/legacy/doublespinbox.h"
#include "internal/legacy/floatslidereditor.h"

#include <QLocale>
#include <QSignalSpy>
#include <QSlider>
#include <QtTest>

#include <cmath>

using namespace ParameterCollection;

class tst_FloatSliderEditor : public QObject, private EditorFixture {
    Q_OBJECT

private:
    FloatSliderEditor* open(const QString& feature)
    {
        auto* editor = new FloatSliderEditor(m_window.get(), m_cases);
        editor->resize(400, 28);
        return showLikeTheDelegate(editor, {parameter(feature), m_cases});
    }

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void init()
    {
        openCases(QStringLiteral("floatalias"));
        openWindow(500);
    }
    void cleanup() { closeDescriptions(); }

    void shouldPickTheSliderModeFromTheRepresentation_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("logarithmic");
        QTest::newRow("Linear") << "SteppedLinear" << int(TwoModeDoubleComboSlider::LinearMode)
                                << false;
        QTest::newRow("Logarithmic")
            << "LogFloat" << int(TwoModeDoubleComboSlider::LogarithmicMode) << true;
        QTest::newRow("Logarithmic from zero runs linearly")
            << "LogFromZero" << int(TwoModeDoubleComboSlider::LogarithmicMode) << false;
        QTest::newRow("Logarithmic across zero runs linearly")
            << "LogNegative" << int(TwoModeDoubleComboSlider::LogarithmicMode) << false;
    }
    void shouldPickTheSliderModeFromTheRepresentation()
    {
        QFETCH(QString, feature);
        QFETCH(int, mode);
        QFETCH(bool, logarithmic);

        FloatSliderEditor* editor = open(feature);

        QCOMPARE(int(editor->mode()), mode);
        QCOMPARE(editor->isLogarithmic(), logarithmic);
        QCOMPARE(editor->value(), parameter(feature)->getParameterData()->value.toDouble());
        QVERIFY(std::isfinite(editor->sliderPositionToValue(editor->slider()->value())));
    }

    void shouldPlaceTheHandleOnTheLogarithmicScale()
    {
        // Given LogFloat, 1..1000 at 100
        FloatSliderEditor* editor = open(QStringLiteral("LogFloat"));
        const QSlider* slider = editor->slider();
        const double logMin = std::log2(1.0);
        const double logMax = std::log2(1000.0);
        const double scale = (logMax - logMin) / double(slider->maximum() - slider->minimum());

        QCOMPARE(editor->logMin(), logMin);
        QCOMPARE(editor->scale(), scale);
        QCOMPARE(slider->value(),
                 int(std::round((std::log2(100.0) - logMin) / scale + slider->minimum())));
    }

    void shouldShowUnitNotationAndRangeToolTip_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("toolTip");
        QTest::newRow("linear with increment") << "SteppedLinear"
                                               << "10.0 ms"
                                               << "Range: 0..100 (Increment: 0.5)\nUnit: ms";
        QTest::newRow("logarithmic") << "LogFloat" << QStringLiteral("100.0 µs")
                                     << QString::fromUtf8("Range: 1..1000\nUnit: µs");
        QTest::newRow("linear, two decimals") << "RoundedLinear"
                                              << "12.30 dB"
                                              << "Range: 0..100\nUnit: dB";
    }
    void shouldShowUnitNotationAndRangeToolTip()
    {
        QFETCH(QString, feature);
        QFETCH(QString, text);
        QFETCH(QString, toolTip);

        FloatSliderEditor* editor = open(feature);

        QCOMPARE(editor->spinBox()->text(), text);
        QCOMPARE(editor->toolTip(), toolTip);
    }

    void shouldUseTheIncrementOrAStepDerivedFromTheRange_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("pageStep");
        QTest::newRow("increment") << "SteppedLinear" << 0.5 << 5.0;
        QTest::newRow("derived") << "Gain/Alias" << 0.1 << 0.75;
        QTest::newRow("derived, logarithmic") << "LogFloat" << 10.0 << 49.95;
    }
    void shouldUseTheIncrementOrAStepDerivedFromTheRange()
    {
        QFETCH(QString, feature);
        QFETCH(double, step);
        QFETCH(double, pageStep);

        FloatSliderEditor* editor = open(feature);

        QCOMPARE(editor->singleStep(), step);
        QCOMPARE(editor->spinBox()->singleStep(), step);
        QCOMPARE(editor->pageStep(), pageStep);
    }

    void shouldCommitATypedValueOnEnter()
    {
        FloatSliderEditor* editor = open(QStringLiteral("SteppedLinear"));
        QSignalSpy changed(editor, &FloatSliderEditor::boxValueChanged);

        typeOver(editor->spinBox(), QStringLiteral("42.5"));
        QCOMPARE(changed.count(), 0);
        QTest::keyClick(editor->spinBox(), Qt::Key_Enter);

        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toDouble(), 42.5);
        QCOMPARE(editor->editorData(), QVariant(42.5));
        QCOMPARE(deviceValue(QStringLiteral("SteppedLinear")), QVariant(42.5));
        QCOMPARE(editor->slider()->value(), 85);
    }

    void shouldTakeTheTypingBackOnEscape()
    {
        FloatSliderEditor* editor = open(QStringLiteral("SteppedLinear"));
        QSignalSpy changed(editor, &FloatSliderEditor::boxValueChanged);
        typeOver(editor->spinBox(), QStringLiteral("42.5"));

        QTest::keyClick(editor->spinBox(), Qt::Key_Escape);

        QCOMPARE(editor->spinBox()->text(), QStringLiteral("10.0 ms"));
        QTest::keyClick(editor->spinBox(), Qt::Key_Enter);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(deviceValue(QStringLiteral("SteppedLinear")), QVariant(10.0));
    }

    void shouldStepByTheIncrementWithArrowKeysAndTheWheel()
    {
        FloatSliderEditor* editor = open(QStringLiteral("SteppedLinear"));
        QSignalSpy changed(editor, &FloatSliderEditor::boxValueChanged);

        QTest::keyClick(editor->slider(), Qt::Key_Right);
        QCOMPARE(deviceValue(QStringLiteral("SteppedLinear")), QVariant(10.5));
        QTest::keyClick(editor->spinBox(), Qt::Key_Up);
        QCOMPARE(deviceValue(QStringLiteral("SteppedLinear")), QVariant(11.0));
        QVERIFY(giveFocus(editor->slider()));
        QVERIFY(turnWheel(editor->slider(), 120));
        QCOMPARE(deviceValue(QStringLiteral("SteppedLinear")), QVariant(11.5));
        QVERIFY(giveFocus(editor->spinBox()));
        QVERIFY(turnWheel(editor->spinBox(), -120));

        QCOMPARE(changed.count(), 4);
        QCOMPARE(deviceValue(QStringLiteral("SteppedLinear")), QVariant(11.0));
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("11.0 ms"));
        QCOMPARE(editor->slider()->value(), 22);
    }

    void shouldCommitWhileTheUserDragsTheSlider()
    {
        // Given the logarithmic LogFloat at 100
        FloatSliderEditor* editor = open(QStringLiteral("LogFloat"));
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QSlider* slider = editor->slider();
        QSignalSpy changed(editor, &FloatSliderEditor::boxValueChanged);

        // When the handle is dragged to the right and let go
        QVERIFY(dragHandle(slider, 20, 2));

        // Then each value was committed and the device holds the last, on the logarithmic scale
        QCOMPARE(changed.count(), 2);
        const double expected = qBound(
            1.0,
            std::exp2(editor->logMin() + (slider->value() - slider->minimum()) * editor->scale()),
            1000.0);
        QCOMPARE(changed.last().at(0).toDouble(), expected);
        QCOMPARE(deviceValue(QStringLiteral("LogFloat")).toDouble(), expected);
    }

    void shouldNotEmitWhileDataIsLoaded()
    {
        FloatSliderEditor* editor = open(QStringLiteral("LogFloat"));
        QSignalSpy changed(editor, &FloatSliderEditor::boxValueChanged);

        parameter(QStringLiteral("LogFloat"))->setValue(QVariant(500.0));
        m_cases->waitForDevice();
        editor->setEditorData({parameter(QStringLiteral("SteppedLinear")), m_cases});
        editor->setEditorData({parameter(QStringLiteral("LogFloat")), m_cases});

        QCOMPARE(editor->value(), 500.0);
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("500.0 µs"));
        QCOMPARE(changed.count(), 0);
    }

    void shouldShowTheValueTheCameraAnswered()
    {
        // Given a linear feature whose device keeps tenths
        FloatSliderEditor* editor = open(QStringLiteral("RoundedLinear"));
        QSignalSpy changed(editor, &FloatSliderEditor::boxValueChanged);

        // When 12.34 is typed and committed
        typeAndEnter(editor->spinBox(), QStringLiteral("12.34"));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("12.34 dB"));

        // Then the editor shows what the device made of it
        QCOMPARE(deviceValue(QStringLiteral("RoundedLinear")), QVariant(12.3));
        QTRY_COMPARE(editor->spinBox()->text(), QStringLiteral("12.30 dB"));
        QCOMPARE(editor->value(), 12.3);
        QCOMPARE(editor->slider()->value(), editor->valueToSliderPosition(12.3));
        QCOMPARE(changed.count(), 1);
    }

    void shouldEditTheBuiltInCamerasExposureTimeLogarithmically()
    {
        const auto camera = openSimulatedCamera();
        const auto exposure =
            camera->collection->getParameter(fullFeatureName(QStringLiteral("ExposureTime")));
        QVERIFY(exposure);
        auto* editor =
            showLikeTheDelegate(new FloatSliderEditor(m_window.get(), camera->collection),
                                {exposure, camera->collection});
        QVERIFY(editor->isLogarithmic());
        QCOMPARE(editor->logMin(), std::log2(20.0));
        QCOMPARE(editor->logMax(), std::log2(1e7));
        QCOMPARE(editor->spinBox()->suffix(), QStringLiteral(" µs"));
        QCOMPARE(editor->toolTip(), QString::fromUtf8("Range: 20..10000000\nUnit: µs"));

        editor->slider()->triggerAction(QAbstractSlider::SliderPageStepAdd);

        const QSlider* slider = editor->slider();
        const double expected =
            qBound(20.0,
                   std::exp2(std::log2(20.0) + (slider->value() - slider->minimum()) *
                                                   ((std::log2(1e7) - std::log2(20.0)) /
                                                    (slider->maximum() - slider->minimum()))),
                   1e7);
        QTRY_COMPARE(exposure->getParameterData()->value.toDouble(), expected);
        delete editor;
    }

    void shouldFollowTheAliasWhereOneExists()
    {
        // Given Gain, whose alias Gain/Alias (1..16 x) exists
        FloatSliderEditor* editor = open(QStringLiteral("Gain"));
        QVERIFY(editor->alias());
        QCOMPARE(editor->alias()->getName(), fullFeatureName(QStringLiteral("Gain/Alias")));
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("2.000 x"));
        QCOMPARE(editor->toolTip(), QStringLiteral("Range: 1..16\nUnit: x"));
        QSignalSpy changed(editor, &FloatSliderEditor::boxValueChanged);

        // When the user steps the slider
        QTest::keyClick(editor->slider(), Qt::Key_End);

        // Then the alias is written, the feature is not, and the model has nothing to write
        QCOMPARE(changed.count(), 1);
        QCOMPARE(deviceValue(QStringLiteral("Gain/Alias")), QVariant(16.0));
        QCOMPARE(deviceValue(QStringLiteral("Gain")), QVariant(6.0));
        QCOMPARE(editor->editorData(), QVariant(6.0));
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("16.000 x"));
    }

    void shouldKeepUpWithTheAliasWhenTheDeviceChangesIt()
    {
        FloatSliderEditor* editor = open(QStringLiteral("Gain"));
        QSignalSpy changed(editor, &FloatSliderEditor::boxValueChanged);

        parameter(QStringLiteral("Gain/Alias"))->setValue(QVariant(8.5));
        m_cases->waitForDevice();

        QTRY_COMPARE(editor->value(), 8.5);
        QCOMPARE(changed.count(), 0);
    }

    void shouldEditTheFeatureItselfWhereNoAliasExists()
    {
        QVERIFY(!parameter(QStringLiteral("SteppedLinear/Alias")));

        FloatSliderEditor* editor = open(QStringLiteral("SteppedLinear"));

        QVERIFY(!editor->alias());
        QCOMPARE(editor->value(), 10.0);
    }

    void shouldLogAndIgnoreANonFloatParameter()
    {
        FloatSliderEditor* editor = open(QStringLiteral("SteppedLinear"));
        QSignalSpy changed(editor, &FloatSliderEditor::boxValueChanged);

        const QStringList log =
            logOfLoading(*editor, {parameter(QStringLiteral("Count")), m_cases});

        QCOMPARE(log, QStringList{
                          QStringLiteral("@CameraDevice/Count is called with non-float node????")});
        QCOMPARE(editor->value(), 10.0);
        QCOMPARE(editor->editorData(), QVariant(10.0));
        QCOMPARE(changed.count(), 0);
    }

    void shouldLogAFeatureThatCannotBeRead()
    {
        MessageCapture messages;

        FloatSliderEditor* editor = open(QStringLiteral("WriteOnlyFloat"));

        QCOMPARE(messages.lines(), QStringList{QStringLiteral(
                                       "Non-readable slider: @CameraDevice/WriteOnlyFloat??????")});
        QCOMPARE(editor->value(), 0.0);
    }

    void shouldDisableAReadOnlyFeature()
    {
        FloatSliderEditor* editor = open(QStringLiteral("ReadOnlyFloat"));

        QVERIFY(!editor->isEnabled());
        QCOMPARE(editor->value(), 3.5);
    }

    void shouldNotOverwriteTypingWhenNewDataArrives()
    {
        FloatSliderEditor* editor = open(QStringLiteral("SteppedLinear"));
        QSignalSpy changed(editor, &FloatSliderEditor::boxValueChanged);
        typeOver(editor->spinBox(), QStringLiteral("77"));

        parameter(QStringLiteral("SteppedLinear"))->setValue(QVariant(55.0));
        m_cases->waitForDevice();

        QCOMPARE(editor->spinBox()->text(), QStringLiteral("77 ms"));
        QTest::keyClick(editor->spinBox(), Qt::Key_Escape);
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("55.0 ms"));
        QCOMPARE(editor->slider()->value(), 110);
        QCOMPARE(changed.count(), 0);
    }

    void shouldKeepEnterAndEscapeInsideTheEditor()
    {
        FloatSliderEditor* editor = open(QStringLiteral("SteppedLinear"));

        QCOMPARE(keysReaching(editor, editor->spinBox(), {Qt::Key_Escape, Qt::Key_Enter}),
                 QList<int>());
    }
};

QTEST_MAIN(tst_FloatSliderEditor)
#include "tst_floatslidereditor.moc"
