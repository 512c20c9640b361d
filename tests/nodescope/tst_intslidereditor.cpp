#include "testsupport.h"

#include "internal/legacy/intslidereditor.h"
#include "internal/legacy/vantoqtspinbox.h"

#include <parametercollection/exception.h>

#include <QApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QSlider>
#include <QStandardItemModel>
#include <QStyleOptionSlider>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QtTest>

#include <limits>

using namespace ParameterCollection;

// The hint of closeEditor, for QSignalSpy.
Q_DECLARE_METATYPE(QAbstractItemDelegate::EndEditHint)

namespace {

const int kIntMin = std::numeric_limits<int>::min();
const int kIntMax = std::numeric_limits<int>::max();

QList<int> intsOf(const QSignalSpy& spy)
{
    QList<int> values;
    for (const QList<QVariant>& arguments : spy) {
        values << arguments.at(0).toInt();
    }
    return values;
}

QRect handleRect(QSlider* slider)
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
    return slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle,
                                           slider);
}

void dragBy(QSlider* slider, int dx, int moves)
{
    QPoint pos = handleRect(slider).center();
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, pos);
    for (int i = 0; i < moves; ++i) {
        pos.rx() += dx;
        QMouseEvent move(QEvent::MouseMove, pos, slider->mapToGlobal(pos), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(slider, &move);
    }
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, pos);
}

// Does what the feature tree's delegate does with a slider editor: loads it from the
// parameter, and writes every value it announces at once.
class CommittingDelegate : public QStyledItemDelegate {
public:
    CommittingDelegate(QSharedPointer<IParameter> parameter, QObject* parent)
        : QStyledItemDelegate(parent), m_parameter(parameter)
    {}
    mutable QPointer<IntSliderEditor> editor;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex&) const override
    {
        editor = new IntSliderEditor(parent);
        connect(editor.data(), &IntSliderEditor::valueChanged, this,
                [this] { Q_EMIT const_cast<CommittingDelegate*>(this)->commitData(editor); });
        return editor;
    }
    void setEditorData(QWidget* widget, const QModelIndex&) const override
    {
        static_cast<IntSliderEditor*>(widget)->setEditorData({m_parameter, {}});
    }
    void setModelData(QWidget* widget, QAbstractItemModel*, const QModelIndex&) const override
    {
        m_parameter->setValue(static_cast<IntSliderEditor*>(widget)->editorData());
    }

private:
    QSharedPointer<IParameter> m_parameter;
};

} // namespace

class tst_IntSliderEditor : public QObject {
    Q_OBJECT

private:
    QSharedPointer<Backend::DeviceParameterCollection> m_tree;
    QSharedPointer<Backend::DeviceParameterCollection> m_ints;
    std::unique_ptr<SimulatedCamera> m_camera;

    QSharedPointer<IParameter> tree(const QString& feature) const
    {
        return m_tree->getParameter(QStringLiteral("@CameraDevice/") + feature);
    }
    QSharedPointer<IParameter> ints(const QString& feature) const
    {
        return m_ints->getParameter(QStringLiteral("@CameraDevice/") + feature);
    }
    QSharedPointer<IParameter> parameterOf(const QString& source, const QString& feature) const
    {
        if (source == QLatin1String("tree")) {
            return tree(feature);
        }
        if (source == QLatin1String("ints")) {
            return ints(feature);
        }
        return m_camera->collection->getParameter(QStringLiteral("@CameraDevice/") + feature);
    }

    // Feeds the editor on every change of the parameter, as the model and delegate do.
    void follow(IntSliderEditor& editor, const QSharedPointer<IParameter>& parameter)
    {
        editor.setEditorData({parameter, {}});
        connect(parameter.data(), &IParameter::parameterDataChanged, &editor, [&editor, parameter] {
            editor.setEditorData({parameter, {}});
        });
    }

private Q_SLOTS:
    void initTestCase()
    {
        qRegisterMetaType<QAbstractItemDelegate::EndEditHint>();
        m_camera = openSimulatedCamera();
        QVERIFY(m_camera->collection);
    }
    void init()
    {
        m_tree = openTestDescription(QStringLiteral("tree"));
        m_ints = openTestDescription(QStringLiteral("integereditors"));
    }
    void cleanup()
    {
        m_tree.reset();
        m_ints.reset();
    }
    void cleanupTestCase() { m_camera.reset(); }

    void shouldLoadRangeIncrementAndValueFromTheParameter_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("feature");
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("increment");
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("toolTip");
        QTest::newRow("linear") << "tree"
                                << "IntLinear" << 0 << 1000 << 10 << 500
                                << "Range: 0..1000 (Increment: 10)";
        QTest::newRow("logarithmic") << "tree"
                                     << "IntLog" << 1 << 100000 << 1 << 100 << "Range: 1..100000";
        QTest::newRow("grid from three")
            << "ints"
            << "GridFromThree" << 3 << 103 << 5 << 13 << "Range: 3..103 (Increment: 5)";
        QTest::newRow("camera width") << "camera"
                                      << "Width" << 16 << -1 << 16 << -1 << QString();
    }
    void shouldLoadRangeIncrementAndValueFromTheParameter()
    {
        QFETCH(QString, source);
        QFETCH(QString, feature);
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, increment);
        QFETCH(int, value);
        QFETCH(QString, toolTip);

        const auto parameter = parameterOf(source, feature);
        QVERIFY(parameter);
        const auto data = parameter->getParameterData().dynamicCast<const IntegerParameterData>();
        QVERIFY(data);
        if (maximum == -1) { // the camera's own numbers
            maximum = int(data->max);
            value = data->value.toInt();
            toolTip = QStringLiteral("Range: %1..%2 (Increment: 16)").arg(minimum).arg(maximum);
        }
        IntSliderEditor editor;
        QSignalSpy values(&editor, &IntSliderEditor::valueChanged);
        MessageCapture log;

        editor.setEditorData({parameter, {}});

        QCOMPARE(editor.slider()->minimum(), minimum);
        QCOMPARE(editor.slider()->maximum(), maximum);
        QCOMPARE(editor.slider()->singleStep(), increment);
        QCOMPARE(editor.slider()->value(), value);
        QCOMPARE(editor.spinBox()->minimum(), minimum);
        QCOMPARE(editor.spinBox()->maximum(), maximum);
        QCOMPARE(editor.spinBox()->singleStep(), increment);
        QCOMPARE(editor.spinBox()->value(), value);
        QCOMPARE(editor.toolTip(), toolTip);
        QVERIFY(editor.isEnabled());
        QCOMPARE(editor.editorData(), QVariant(value));
        QCOMPARE(values.count(), 0);
        QCOMPARE(log.lines(), QStringList());
    }

    void shouldShowA64BitRangeClippedToInt32InTheSlider_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("value");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("signed 64 bits")
            << "VntTestSignedValue64" << kIntMin << kIntMax << 0 << true;
        QTest::newRow("40 bits") << "GevTimestampTickFrequency" << 0 << kIntMax << 1000000000
                                 << false;
        QTest::newRow("unsigned 32 bits, read-only")
            << "VntDeviceUptime" << 0 << kIntMax << -1 << false;
    }
    void shouldShowA64BitRangeClippedToInt32InTheSlider()
    {
        QFETCH(QString, feature);
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, value);
        QFETCH(bool, enabled);

        const auto parameter = parameterOf(QStringLiteral("camera"), feature);
        QVERIFY(parameter);
        const auto data = parameter->getParameterData().dynamicCast<const IntegerParameterData>();
        QVERIFY(data && data->readable);
        QVERIFY(data->max > kIntMax);
        QCOMPARE(data->writable, enabled);
        if (value == -1) { // the uptime moves on its own
            value = int(qMin<qint64>(data->value.toLongLong(), kIntMax));
        }
        IntSliderEditor editor;

        editor.setEditorData({parameter, {}});

        QCOMPARE(editor.slider()->minimum(), minimum);
        QCOMPARE(editor.slider()->maximum(), maximum);
        QCOMPARE(editor.spinBox()->minimum(), minimum);
        QCOMPARE(editor.spinBox()->maximum(), maximum);
        QCOMPARE(editor.slider()->value(), value);
        QCOMPARE(editor.toolTip(), QStringLiteral("Range: %1..%2").arg(minimum).arg(maximum));
        QCOMPARE(editor.isEnabled(), enabled);
    }

    void shouldSetThePageStepToTwiceTheIncrementOrATwentiethOfTheRange_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("feature");
        QTest::addColumn<int>("pageStep");
        QTest::addColumn<int>("afterPageUp");
        // 1000 / 20 = 50 beats 2 * 10.
        QTest::newRow("range wins") << "tree"
                                    << "IntLinear" << 50 << 550;
        // 2 * 5 = 10 beats 100 / 20 = 5.
        QTest::newRow("increment wins") << "ints"
                                        << "GridFromThree" << 10 << 23;
        QTest::newRow("logarithmic") << "tree"
                                     << "IntLog" << 4999 << 5099;
        // |2147483647 - (-2147483648)| / 20, computed without overflow.
        QTest::newRow("full int range") << "camera"
                                        << "VntTestSignedValue64" << 214748364 << 214748364;
    }
    void shouldSetThePageStepToTwiceTheIncrementOrATwentiethOfTheRange()
    {
        QFETCH(QString, source);
        QFETCH(QString, feature);
        QFETCH(int, pageStep);
        QFETCH(int, afterPageUp);

        IntSliderEditor editor;
        editor.setEditorData({parameterOf(source, feature), {}});
        QCOMPARE(editor.pageStep(), pageStep);
        QCOMPARE(editor.slider()->pageStep(), pageStep);
        QCOMPARE(editor.spinBox()->pageStep(), pageStep);

        // Page Up in the spin box steps by that page step and commits once.
        QSignalSpy values(&editor, &IntSliderEditor::valueChanged);
        QTest::keyClick(editor.spinBox(), Qt::Key_PageUp);
        QCOMPARE(intsOf(values), QList<int>{afterPageUp});
        QCOMPARE(editor.editorData(), QVariant(afterPageUp));
    }

    void shouldSnapATypedValueOntoTheIncrementGridWhenEditingEnds()
    {
        // Given the editor of a feature with minimum 3 and increment 5
        IntSliderEditor editor;
        editor.setEditorData({ints(QStringLiteral("GridFromThree")), {}});
        QSignalSpy values(&editor, &IntSliderEditor::valueChanged);

        // When 14 is typed and editing ends
        QTest::keyClick(editor.spinBox(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor.spinBox(), "14");
        QCOMPARE(editor.spinBox()->text(), QStringLiteral("14"));
        QTest::keyClick(editor.spinBox(), Qt::Key_Return);

        // Then 13 is shown, and nothing is announced since 13 was the value already
        QCOMPARE(editor.spinBox()->text(), QStringLiteral("13"));
        QCOMPARE(editor.editorData(), QVariant(13));
        QCOMPARE(values.count(), 0);

        // And 29 becomes 28, which is new and so announced
        QTest::keyClick(editor.spinBox(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor.spinBox(), "29");
        QTest::keyClick(editor.spinBox(), Qt::Key_Return);
        QCOMPARE(editor.spinBox()->text(), QStringLiteral("28"));
        QCOMPARE(intsOf(values), QList<int>{28});
    }

    void shouldUndoTypingOnEscapeAndKeepTheEditorOpen()
    {
        // Given a view editing IntLinear (500) with the slider editor
        const auto parameter = tree(QStringLiteral("IntLinear"));
        QStandardItemModel model(1, 1);
        QTableView view;
        auto* delegate = new CommittingDelegate(parameter, &view);
        view.setItemDelegate(delegate);
        view.setModel(&model);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.edit(model.index(0, 0));
        QVERIFY(delegate->editor);
        QSignalSpy closed(delegate, &QAbstractItemDelegate::closeEditor);
        QVERIFY(closed.isValid());
        QSignalSpy committed(delegate, &QAbstractItemDelegate::commitData);
        VantoQtSpinBox* box = delegate->editor->spinBox();

        // When the user types a number and presses Escape
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, "730");
        QTest::keyClick(box, Qt::Key_Escape);
        // The view closes editors through queued calls: let them run.
        QCoreApplication::processEvents();

        // Then the previous text is back, nothing was written and the editor is still open
        QCOMPARE(box->text(), QStringLiteral("500"));
        QCOMPARE(closed.count(), 0);
        QCOMPARE(committed.count(), 0);
        QCOMPARE(view.indexWidget(model.index(0, 0)), delegate->editor.data());
        m_tree->waitForDevice();
        QCOMPARE(parameter->getParameterData()->value.toLongLong(), 500);
    }

    void shouldCommitOnEnterWithoutClosingTheEditor()
    {
        const auto parameter = tree(QStringLiteral("IntLinear"));
        QStandardItemModel model(1, 1);
        QTableView view;
        auto* delegate = new CommittingDelegate(parameter, &view);
        view.setItemDelegate(delegate);
        view.setModel(&model);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.edit(model.index(0, 0));
        QVERIFY(delegate->editor);
        QSignalSpy closed(delegate, &QAbstractItemDelegate::closeEditor);
        QVERIFY(closed.isValid());
        QSignalSpy committed(delegate, &QAbstractItemDelegate::commitData);
        VantoQtSpinBox* box = delegate->editor->spinBox();

        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, "730");
        QTest::keyClick(box, Qt::Key_Enter);
        // The view closes editors through queued calls: let them run.
        QCoreApplication::processEvents();

        QCOMPARE(committed.count(), 1);
        QCOMPARE(closed.count(), 0);
        m_tree->waitForDevice();
        QCOMPARE(parameter->getParameterData()->value.toLongLong(), 730);
    }

    void shouldCommitEveryValueReachedWhileDragging()
    {
        // Given an editor that follows IntLinear and writes what it announces
        const auto parameter = tree(QStringLiteral("IntLinear"));
        IntSliderEditor editor;
        editor.resize(600, 40);
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        follow(editor, parameter);
        QStringList refused;
        connect(&editor, &IntSliderEditor::valueChanged, &editor, [&] {
            try {
                parameter->setValue(editor.editorData());
            } catch (const Exception& e) {
                refused << e.text();
            }
        });
        QSignalSpy values(&editor, &IntSliderEditor::valueChanged);

        // When the handle is dragged to the right
        dragBy(editor.slider(), 3, 40);
        m_tree->waitForDevice();

        // Then each announced value is new and on the grid, the camera took every one, and the
        // camera's answers did not bounce back as new announcements
        const QList<int> seen = intsOf(values);
        QVERIFY(seen.size() >= 3);
        for (int i = 0; i < seen.size(); ++i) {
            QCOMPARE(seen.at(i) % 10, 0);
            if (i > 0) {
                QVERIFY(seen.at(i) > seen.at(i - 1));
            }
        }
        QCOMPARE(refused, QStringList());
        QCOMPARE(parameter->getParameterData()->value.toInt(), seen.last());
        QCOMPARE(editor.editorData(), QVariant(seen.last()));
    }

    void shouldShowTheValueTheCameraReportsWithoutAnnouncingIt()
    {
        const auto parameter = tree(QStringLiteral("IntLinear"));
        IntSliderEditor editor;
        follow(editor, parameter);
        QSignalSpy values(&editor, &IntSliderEditor::valueChanged);
        QSignalSpy ranges(&editor, &IntSliderEditor::rangeChanged);

        // When someone else writes the feature
        parameter->setValue(QVariant(qint64(700)));
        m_tree->waitForDevice();

        // Then the editor shows the camera's value, and neither the value nor the unchanged
        // range was announced
        QCOMPARE(editor.slider()->value(), 700);
        QCOMPARE(editor.spinBox()->value(), 700);
        QCOMPARE(values.count(), 0);
        QCOMPARE(ranges.count(), 0);
    }

    void shouldFollowAMaximumThatTheCameraChanges()
    {
        // Width's maximum shrinks when OffsetX grows.
        const auto width = parameterOf(QStringLiteral("camera"), QStringLiteral("Width"));
        const auto offsetX = parameterOf(QStringLiteral("camera"), QStringLiteral("OffsetX"));
        QVERIFY(width && offsetX);
        const qint64 offsetBefore = offsetX->getParameterData()->value.toLongLong();
        const int maximumBefore =
            int(width->getParameterData().dynamicCast<const IntegerParameterData>()->max);
        IntSliderEditor editor;
        follow(editor, width);
        QSignalSpy values(&editor, &IntSliderEditor::valueChanged);
        QSignalSpy ranges(&editor, &IntSliderEditor::rangeChanged);

        width->setValue(QVariant(qint64(64)));
        auto* camera =
            qobject_cast<Backend::DeviceParameterCollection*>(m_camera->collection.data());
        QVERIFY(camera);
        camera->waitForDevice();
        offsetX->setValue(QVariant(offsetBefore + 32));
        camera->waitForDevice();
        width->addObserver();
        camera->refresh();
        camera->waitForDevice();
        width->removeObserver();

        QCOMPARE(editor.slider()->value(), 64);
        QCOMPARE(editor.slider()->maximum(), maximumBefore - 32);
        QVERIFY(ranges.count() >= 1);
        QCOMPARE(values.count(), 0);

        offsetX->setValue(QVariant(offsetBefore));
        camera->waitForDevice();
    }

    void shouldDisableItselfExactlyWhileTheParameterIsNotWritable()
    {
        IntSliderEditor readOnly;
        readOnly.setEditorData({ints(QStringLiteral("LinearReadOnly")), {}});
        QVERIFY(!readOnly.isEnabled());
        QCOMPARE(readOnly.slider()->value(), 40);

        // A lock comes and goes with the switch that imposes it.
        const auto lockable = ints(QStringLiteral("Lockable"));
        IntSliderEditor editor;
        follow(editor, lockable);
        QVERIFY(editor.isEnabled());
        lockable->addObserver();
        ints(QStringLiteral("LockSwitch"))->setValue(QVariant(qint64(1)));
        m_ints->waitForDevice();
        m_ints->refresh();
        m_ints->waitForDevice();
        QVERIFY(lockable->getParameterData()->locked);
        QVERIFY(!editor.isEnabled());
        QCOMPARE(editor.slider()->value(), 30);

        ints(QStringLiteral("LockSwitch"))->setValue(QVariant(qint64(0)));
        m_ints->waitForDevice();
        m_ints->refresh();
        m_ints->waitForDevice();
        QVERIFY(editor.isEnabled());
        lockable->removeObserver();
    }

    void shouldKeepItsOwnStateInsideADisabledView()
    {
        // Given editors inside a view that is disabled for a moment
        QWidget view;
        view.setEnabled(false);
        auto* readOnly = new IntSliderEditor(&view);
        auto* writable = new IntSliderEditor(&view);

        readOnly->setEditorData({ints(QStringLiteral("LinearReadOnly")), {}});
        writable->setEditorData({tree(QStringLiteral("IntLinear")), {}});

        // When the view is enabled again, each follows its own parameter
        view.setEnabled(true);
        QVERIFY(!readOnly->isEnabled());
        QVERIFY(writable->isEnabled());
    }

    void shouldLogANonReadableSliderAndLeaveItAsItWas()
    {
        IntSliderEditor editor;
        editor.setRangeAndStep(5, 50, 5);
        editor.setValue(25);
        MessageCapture log;

        editor.setEditorData({ints(QStringLiteral("LinearWriteOnly")), {}});

        QCOMPARE(log.lines(), QStringList{QStringLiteral(
                                  "Non-readable slider: @CameraDevice/LinearWriteOnly??????")});
        QCOMPARE(editor.minimum(), 5);
        QCOMPARE(editor.maximum(), 50);
        QCOMPARE(editor.value(), 25);
    }

    void shouldLogAnInvertedRangeAndStillLoad()
    {
        IntSliderEditor editor;
        MessageCapture log;

        editor.setEditorData({ints(QStringLiteral("InvertedRange")), {}});

        QCOMPARE(log.lines(),
                 (QStringList{
                     QStringLiteral(
                         "Feature @CameraDevice/InvertedRange: min value  10 > max value 5???"),
                     QStringLiteral("Feature @CameraDevice/InvertedRange: value 7 out of range??? "
                                    "min = 10, max = 5")}));
        // Qt's widgets take the maximum as the last word: the range collapses onto it.
        QCOMPARE(editor.minimum(), 5);
        QCOMPARE(editor.maximum(), 5);
        QCOMPARE(editor.spinBox()->minimum(), 5);
        QCOMPARE(editor.value(), 5);
    }

    void shouldLogAValueOutOfRangeAndStillLoad()
    {
        IntSliderEditor editor;
        QSignalSpy values(&editor, &IntSliderEditor::valueChanged);
        MessageCapture log;

        editor.setEditorData({ints(QStringLiteral("OutOfRange")), {}});

        QCOMPARE(log.lines(), QStringList{QStringLiteral(
                                  "Feature @CameraDevice/OutOfRange: value 150 out of range??? "
                                  "min = 0, max = 100")});
        QCOMPARE(editor.minimum(), 0);
        QCOMPARE(editor.maximum(), 100);
        QCOMPARE(editor.value(), 100);
        QCOMPARE(values.count(), 0);
    }

    void shouldLogAParameterThatIsNoInteger_data()
    {
        QTest::addColumn<QString>("feature");
        QTest::newRow("float") << "FloatLinear";
        QTest::newRow("enumeration") << "EnumFeat";
        QTest::newRow("category") << "Controls";
    }
    void shouldLogAParameterThatIsNoInteger()
    {
        QFETCH(QString, feature);
        IntSliderEditor editor;
        editor.setRangeAndStep(1, 9, 1);
        MessageCapture log;

        editor.setEditorData({tree(feature), {}});

        QCOMPARE(log.lines(), QStringList{QStringLiteral("@CameraDevice/%1 is called with "
                                                         "non-integer node????")
                                              .arg(feature)});
        QCOMPARE(editor.minimum(), 1);
        QCOMPARE(editor.maximum(), 9);
    }

    void shouldSurviveAMissingParameter()
    {
        IntSliderEditor editor;
        MessageCapture log;

        editor.setEditorData({});

        QCOMPARE(log.lines(), QStringList{QStringLiteral(" is called with non-integer node????")});
    }

    void shouldNotTouchTheSliderWhenTheSameDataArrivesAgain()
    {
        const auto parameter = tree(QStringLiteral("IntLinear"));
        IntSliderEditor editor;
        editor.setEditorData({parameter, {}});
        QSignalSpy values(&editor, &IntSliderEditor::valueChanged);
        QSignalSpy ranges(&editor, &IntSliderEditor::rangeChanged);
        QSignalSpy sliderValues(editor.slider(), &QSlider::valueChanged);

        editor.setEditorData({parameter, {}});
        editor.setEditorData({parameter, {}});

        QCOMPARE(values.count(), 0);
        QCOMPARE(ranges.count(), 0);
        QCOMPARE(sliderValues.count(), 0);
    }

    void shouldAnnounceEveryUserStepAfterAProgramUpdate()
    {
        // The emit flag is back after setEditorData: user steps are announced again.
        IntSliderEditor editor;
        editor.setEditorData({tree(QStringLiteral("IntLinear")), {}});
        QSignalSpy values(&editor, &IntSliderEditor::valueChanged);

        QTest::keyClick(editor.spinBox(), Qt::Key_Up);
        QTest::keyClick(editor.slider(), Qt::Key_Left);
        QTest::keyClick(editor.slider(), Qt::Key_Left);

        QCOMPARE(intsOf(values), (QList<int>{510, 500, 490}));
    }

    void shouldFillItsBackgroundOverTheCell()
    {
        IntSliderEditor editor;
        QVERIFY(editor.autoFillBackground());
    }
};

QTEST_MAIN(tst_IntSliderEditor)
#include "tst_intslidereditor.moc"
