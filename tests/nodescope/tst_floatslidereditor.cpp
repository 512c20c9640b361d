#include "testsupport.h"

#include "internal/legacy/doublespinbox.h"
#include "internal/legacy/floatslidereditor.h"

#include <QApplication>
#include <QLocale>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>
#include <QtTest>

#include <cmath>

using namespace ParameterCollection;

namespace {

const QString kPrefix = QStringLiteral("@CameraDevice/");

bool giveFocus(QWidget* widget)
{
    widget->window()->show();
    QApplication::setActiveWindow(widget->window());
    widget->setFocus(Qt::OtherFocusReason);
    return QTest::qWaitFor([widget] { return widget->hasFocus(); });
}

bool turnWheel(QWidget* widget, int delta)
{
    const QPoint center = widget->rect().center();
    QWheelEvent event(QPointF(center), QPointF(widget->mapToGlobal(center)), QPoint(),
                      QPoint(0, delta), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    event.setAccepted(false);
    QApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

QPoint handleCenter(QSlider* slider)
{
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.orientation = slider->orientation();
    option.minimum = slider->minimum();
    option.maximum = slider->maximum();
    option.sliderPosition = slider->sliderPosition();
    option.sliderValue = slider->value();
    option.singleStep = slider->singleStep();
    option.pageStep = slider->pageStep();
    option.upsideDown = slider->invertedAppearance();
    return slider->style()
        ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider)
        .center();
}

void sendMouse(QWidget* widget, QEvent::Type type, const QPoint& pos, Qt::MouseButtons buttons)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, QPointF(pos), QPointF(widget->mapToGlobal(pos)), button, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void typeOver(QAbstractSpinBox* box, const QString& text)
{
    box->selectAll();
    QTest::keyClicks(box, text);
}

// The delegate's and the model's part: commit each boxValueChanged unless it equals the
// current value, and reload the editor on every new parameter data.
void wireLikeTheDelegate(FloatSliderEditor* editor, const AbstractItemEditor::EditorData& data)
{
    const QSharedPointer<IParameter> parameter = data.parameter;
    QObject::connect(editor, &FloatSliderEditor::boxValueChanged, editor, [editor, parameter] {
        const QVariant value = editor->editorData();
        if (!value.isValid() || parameter->getParameterData()->value == value) {
            return;
        }
        try {
            parameter->setValue(value);
        } catch (const std::exception& e) {
            QFAIL(e.what());
        }
    });
    QObject::connect(parameter.data(), &IParameter::parameterDataChanged, editor,
                     [editor, data] { editor->setEditorData(data); });
}

} // namespace

class tst_FloatSliderEditor : public QObject {
    Q_OBJECT

private:
    QSharedPointer<Backend::DeviceParameterCollection> m_collection;
    std::unique_ptr<QWidget> m_window;

    QSharedPointer<IParameter> parameter(const QString& feature) const
    {
        return m_collection->getParameter(kPrefix + feature);
    }
    QVariant deviceValue(const QString& feature) const
    {
        m_collection->waitForDevice();
        return parameter(feature)->getParameterData()->value;
    }
    FloatSliderEditor* open(const QString& feature)
    {
        auto* editor = new FloatSliderEditor(m_window.get(), m_collection);
        const AbstractItemEditor::EditorData data{parameter(feature), m_collection};
        editor->setEditorData(data);
        wireLikeTheDelegate(editor, data);
        editor->resize(400, 28);
        editor->show();
        return editor;
    }

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void init()
    {
        m_collection = openTestDescription(QStringLiteral("floatalias"));
        m_window = std::make_unique<QWidget>();
        m_window->resize(500, 100);
        m_window->show();
    }
    void cleanup()
    {
        m_window.reset();
        m_collection.reset();
    }

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
                                               << "Range: 0..100 (Increment: 0.5)";
        QTest::newRow("logarithmic")
            << "LogFloat" << QStringLiteral("100.0 µs") << "Range: 1..1000";
        QTest::newRow("linear, two decimals") << "RoundedLinear"
                                              << "12.30 dB"
                                              << "Range: 0..100";
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
        const QPoint start = handleCenter(slider);
        sendMouse(slider, QEvent::MouseButtonPress, start, Qt::LeftButton);
        sendMouse(slider, QEvent::MouseMove, start + QPoint(20, 0), Qt::LeftButton);
        sendMouse(slider, QEvent::MouseMove, start + QPoint(40, 0), Qt::LeftButton);
        sendMouse(slider, QEvent::MouseButtonRelease, start + QPoint(40, 0), Qt::NoButton);

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
        m_collection->waitForDevice();
        editor->setEditorData({parameter(QStringLiteral("SteppedLinear")), m_collection});
        editor->setEditorData({parameter(QStringLiteral("LogFloat")), m_collection});

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
        typeOver(editor->spinBox(), QStringLiteral("12.34"));
        QTest::keyClick(editor->spinBox(), Qt::Key_Enter);
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
            camera->collection->getParameter(QStringLiteral("@CameraDevice/ExposureTime"));
        QVERIFY(exposure);
        auto* editor = new FloatSliderEditor(m_window.get(), camera->collection);
        const AbstractItemEditor::EditorData data{exposure, camera->collection};
        editor->setEditorData(data);
        wireLikeTheDelegate(editor, data);
        editor->show();
        QVERIFY(editor->isLogarithmic());
        QCOMPARE(editor->logMin(), std::log2(20.0));
        QCOMPARE(editor->logMax(), std::log2(1e7));
        QCOMPARE(editor->spinBox()->suffix(), QStringLiteral(" µs"));
        QCOMPARE(editor->toolTip(), QStringLiteral("Range: 20..10000000"));

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
        QCOMPARE(editor->alias()->getName(), kPrefix + QStringLiteral("Gain/Alias"));
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("2.000 x"));
        QCOMPARE(editor->toolTip(), QStringLiteral("Range: 1..16"));
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
        m_collection->waitForDevice();

        QTRY_COMPARE(editor->value(), 8.5);
        QCOMPARE(changed.count(), 0);
    }

    void shouldEditTheFeatureItselfWhereNoAliasExists()
    {
        QVERIFY(!m_collection->getParameter(kPrefix + QStringLiteral("SteppedLinear/Alias")));

        FloatSliderEditor* editor = open(QStringLiteral("SteppedLinear"));

        QVERIFY(!editor->alias());
        QCOMPARE(editor->value(), 10.0);
    }

    void shouldLogAndIgnoreANonFloatParameter()
    {
        FloatSliderEditor* editor = open(QStringLiteral("SteppedLinear"));
        QSignalSpy changed(editor, &FloatSliderEditor::boxValueChanged);
        MessageCapture messages;

        editor->setEditorData({parameter(QStringLiteral("Count")), m_collection});

        QCOMPARE(messages.lines(), QStringList{QStringLiteral(
                                       "@CameraDevice/Count is called with non-float node????")});
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
        m_collection->waitForDevice();

        QCOMPARE(editor->spinBox()->text(), QStringLiteral("77 ms"));
        QTest::keyClick(editor->spinBox(), Qt::Key_Escape);
        QCOMPARE(editor->spinBox()->text(), QStringLiteral("55.0 ms"));
        QCOMPARE(editor->slider()->value(), 110);
        QCOMPARE(changed.count(), 0);
    }

    void shouldKeepEnterAndEscapeInsideTheEditor()
    {
        struct KeyWatcher : QObject {
            QList<int> keys;
            bool eventFilter(QObject*, QEvent* event) override
            {
                if (event->type() == QEvent::KeyPress) {
                    keys << static_cast<QKeyEvent*>(event)->key();
                }
                return false;
            }
        } watcher;
        FloatSliderEditor* editor = open(QStringLiteral("SteppedLinear"));
        editor->installEventFilter(&watcher);

        QTest::keyClick(editor->spinBox(), Qt::Key_Escape);
        QTest::keyClick(editor->spinBox(), Qt::Key_Enter);

        QCOMPARE(watcher.keys, QList<int>());
    }
};

QTEST_MAIN(tst_FloatSliderEditor)
#include "tst_floatslidereditor.moc"
