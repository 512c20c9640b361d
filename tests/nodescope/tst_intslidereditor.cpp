#include "editortestsupport.h"

#include "internal/legacy/intslidereditor.h"
#include "internal/legacy/vantoqtspinbox.h"

#include <parametercollection/exception.h>

#include <QPointer>
#include <QSignalSpy>
#include <QSlider>
#include <QStyledItemDelegate>
#include <QtTest>

#include <limits>

using namespace ParameterCollection;

namespace {

const int kIntMin = std::numeric_limits<int>::min();
const int kIntMax = std::numeric_limits<int>::max();

// Does what the feature tree's delegate does with a slider editor: loads it from the
// parameter, and writes every value it announces at once.
class CommittingDelegate : public QStyledItemDelegate {
public:
    CommittingDelegate(QSharedPointer<IParameter> parameter, QObject* parent)
        : QStyledItemDelegate(parent), m_parameter(parameter)
    {}
    mutable QPointer<IntSliderEditor> editor;
    QSignalSpy committed{this, &QAbstractItemDelegate::commitData};

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

class tst_IntSliderEditor : public QObject, private EditorFixture {
    Q_OBJECT

private:
    // Feeds the editor on every change of the parameter, as the model and delegate do.
    void follow(IntSliderEditor& editor, const QSharedPointer<IParameter>& parameter)
    {
        editor.setEditorData({parameter, {}});
        connect(parameter.data(), &IParameter::parameterDataChanged, &editor, [&editor, parameter] {
            editor.setEditorData({parameter, {}});
        });
    }

    // Opens the slider editor of the view's cell, types 730 over its value and presses `key`.
    // Returns the editor's spin box, null if no editor opened.
    static VantoQtSpinBox* typeIntoTheEditor(OneCellView<CommittingDelegate>& table, Qt::Key key)
    {
        if (!table.edit() || !table.delegate->editor) {
            return nullptr;
        }
        VantoQtSpinBox* box = table.delegate->editor->spinBox();
        selectAllAndType(box, QStringLiteral("730"));
        QTest::keyClick(box, key);
        // The view closes editors through queued calls: let them run.
        QCoreApplication::processEvents();
        return box;
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY(openCamera()); }
    void init() { openDescriptions(QStringLiteral("integereditors")); }
    void cleanup() { closeDescriptions(); }

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
        // The range first, the unit on a line of its own
        QCOMPARE(editor.toolTip().section(QLatin1Char('\n'), 0, 0), toolTip);
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
        QCOMPARE(editor.toolTip().section(QLatin1Char('\n'), 0, 0),
                 QStringLiteral("Range: %1..%2").arg(minimum).arg(maximum));
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
        editor.setEditorData({parameter(QStringLiteral("GridFromThree")), {}});
        QSignalSpy values(&editor, &IntSliderEditor::valueChanged);

        // When 14 is typed and editing ends
        selectAllAndType(editor.spinBox(), "14");
        QCOMPARE(editor.spinBox()->text(), QStringLiteral("14"));
        QTest::keyClick(editor.spinBox(), Qt::Key_Return);

        // Then 13 is shown, and nothing is announced since 13 was the value already
        QCOMPARE(editor.spinBox()->text(), QStringLiteral("13"));
        QCOMPARE(editor.editorData(), QVariant(13));
        QCOMPARE(values.count(), 0);

        // And 29 becomes 28, which is new and so announced
        selectAllAndType(editor.spinBox(), "29");
        QTest::keyClick(editor.spinBox(), Qt::Key_Return);
        QCOMPARE(editor.spinBox()->text(), QStringLiteral("28"));
        QCOMPARE(intsOf(values), QList<int>{28});
    }

    void shouldUndoTypingOnEscapeAndKeepTheEditorOpen()
    {
        // Given a view editing IntLinear (500) with the slider editor
        const auto parameter = tree(QStringLiteral("IntLinear"));
        OneCellView<CommittingDelegate> table(parameter);
        QVERIFY(table.closed.isValid());

        // When the user types a number and presses Escape
        VantoQtSpinBox* box = typeIntoTheEditor(table, Qt::Key_Escape);
        QVERIFY(box);

        // Then the previous text is back, nothing was written and the editor is still open
        QCOMPARE(box->text(), QStringLiteral("500"));
        QCOMPARE(table.closed.count(), 0);
        QCOMPARE(table.delegate->committed.count(), 0);
        QCOMPARE(table.editor(), table.delegate->editor.data());
        m_tree->waitForDevice();
        QCOMPARE(parameter->getParameterData()->value.toLongLong(), 500);
    }

    void shouldCommitOnEnterWithoutClosingTheEditor()
    {
        const auto parameter = tree(QStringLiteral("IntLinear"));
        OneCellView<CommittingDelegate> table(parameter);
        QVERIFY(table.closed.isValid());

        QVERIFY(typeIntoTheEditor(table, Qt::Key_Enter));

        QCOMPARE(table.delegate->committed.count(), 1);
        QCOMPARE(table.closed.count(), 0);
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
        QVERIFY(dragHandle(editor.slider(), 3, 40));
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
        camera()->waitForDevice();
        offsetX->setValue(QVariant(offsetBefore + 32));
        camera()->waitForDevice();
        width->addObserver();
        camera()->refresh();
        camera()->waitForDevice();
        width->removeObserver();

        QCOMPARE(editor.slider()->value(), 64);
        QCOMPARE(editor.slider()->maximum(), maximumBefore - 32);
        QVERIFY(ranges.count() >= 1);
        QCOMPARE(values.count(), 0);

        offsetX->setValue(QVariant(offsetBefore));
        camera()->waitForDevice();
    }

    void shouldDisableItselfExactlyWhileTheParameterIsNotWritable()
    {
        IntSliderEditor readOnly;
        readOnly.setEditorData({parameter(QStringLiteral("LinearReadOnly")), {}});
        QVERIFY(!readOnly.isEnabled());
        QCOMPARE(readOnly.slider()->value(), 40);

        // A lock comes and goes with the switch that imposes it.
        const auto lockable = parameter(QStringLiteral("Lockable"));
        IntSliderEditor editor;
        follow(editor, lockable);
        QVERIFY(editor.isEnabled());
        lockable->addObserver();
        parameter(QStringLiteral("LockSwitch"))->setValue(QVariant(qint64(1)));
        m_cases->waitForDevice();
        m_cases->refresh();
        m_cases->waitForDevice();
        QVERIFY(lockable->getParameterData()->locked);
        QVERIFY(!editor.isEnabled());
        QCOMPARE(editor.slider()->value(), 30);

        parameter(QStringLiteral("LockSwitch"))->setValue(QVariant(qint64(0)));
        m_cases->waitForDevice();
        m_cases->refresh();
        m_cases->waitForDevice();
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

        readOnly->setEditorData({parameter(QStringLiteral("LinearReadOnly")), {}});
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
        const QStringList log =
            logOfLoading(editor, {parameter(QStringLiteral("LinearWriteOnly")), {}});

        QCOMPARE(log, QStringList{QStringLiteral(
                          "Non-readable slider: @CameraDevice/LinearWriteOnly??????")});
        QCOMPARE(editor.minimum(), 5);
        QCOMPARE(editor.maximum(), 50);
        QCOMPARE(editor.value(), 25);
    }

    void shouldLogAnInvertedRangeAndStillLoad()
    {
        IntSliderEditor editor;
        const QStringList log =
            logOfLoading(editor, {parameter(QStringLiteral("InvertedRange")), {}});

        QCOMPARE(log,
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
        const QStringList log = logOfLoading(editor, {parameter(QStringLiteral("OutOfRange")), {}});

        QCOMPARE(log, QStringList{QStringLiteral(
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
        const QStringList log = logOfLoading(editor, {tree(feature), {}});

        QCOMPARE(log, QStringList{QStringLiteral("@CameraDevice/%1 is called with "
                                                 "non-integer node????")
                                      .arg(feature)});
        QCOMPARE(editor.minimum(), 1);
        QCOMPARE(editor.maximum(), 9);
    }

    void shouldSurviveAMissingParameter()
    {
        IntSliderEditor editor;
        const QStringList log = logOfLoading(editor, {});

        QCOMPARE(log, QStringList{QStringLiteral(" is called with non-integer node????")});
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
