#include "testsupport.h"

#include "internal/legacy/doublespinbox.h"
#include "internal/legacy/editorwheelguard.h"
#include "internal/legacy/enumeditor.h"
#include "internal/legacy/featuretreedelegate.h"
#include "internal/legacy/featuretreehighlighter.h"
#include "internal/legacy/featuretreemodel.h"
#include "internal/legacy/featuretreeproxymodel.h"
#include "internal/legacy/floatslidereditor.h"
#include "internal/legacy/intslidereditor.h"
#include "internal/legacy/vantoqtspinbox.h"

#include <deviceworker.h>
#include <simulateddevice.h>

#include <QApplication>
#include <QScrollBar>
#include <QSlider>
#include <QTreeView>
#include <QWheelEvent>
#include <QtTest>

using namespace ParameterCollection;

namespace {

// A wheel notch over the middle of `widget`.
void turnWheelOver(QWidget* widget, int delta)
{
    const QPoint centre = widget->rect().center();
    QWheelEvent event(QPointF(centre), QPointF(widget->mapToGlobal(centre)), QPoint(),
                      QPoint(0, delta), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

} // namespace

// The built-in camera's tree, too tall for its view, with the value editors open.
class tst_EditorWheelGuard : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<SimulatedCamera> m_camera;
    std::unique_ptr<FeatureTreeModel> m_model;
    std::unique_ptr<FeatureTreeProxyModel> m_proxy;
    std::unique_ptr<FeatureTreeHighlighter> m_highlighter;
    std::unique_ptr<QTreeView> m_view;

    Backend::DeviceParameterCollection* device() const
    {
        return static_cast<Backend::DeviceParameterCollection*>(m_camera->collection.data());
    }
    int writes() const
    {
        int count = 0;
        device()->runOnDeviceThread([&count](Backend::DeviceWorker& worker) {
            count = worker.simulatedDevice(0)->writeCount();
        });
        return count;
    }
    QVariant value(const QString& feature) const
    {
        QCoreApplication::processEvents();
        device()->waitForDevice();
        return m_camera->collection->getParameter(QStringLiteral("@CameraDevice/") + feature)
            ->getParameterData()
            ->value;
    }
    template <class Editor> Editor* editorOf(const QString& feature)
    {
        const QModelIndex index =
            m_proxy->findItemByFullName(QStringLiteral("@CameraDevice/") + feature, nullptr, 1);
        m_view->scrollTo(index, QAbstractItemView::PositionAtTop);
        m_view->openPersistentEditor(index);
        return qobject_cast<Editor*>(m_view->indexWidget(index));
    }
    int scrollPosition() const { return m_view->verticalScrollBar()->value(); }

    // Turns the wheel over `widget` while the tree has the focus: nothing may change but the
    // scroll position.
    void checkWheelScrollsOnly(QWidget* widget, const QString& feature)
    {
        m_view->setFocus();
        QVERIFY(!widget->hasFocus());
        const QVariant before = value(feature);
        const int writesBefore = writes();
        const int position = scrollPosition();
        QVERIFY(position < m_view->verticalScrollBar()->maximum());

        turnWheelOver(widget, -120);
        turnWheelOver(widget, -120);

        QCOMPARE(value(feature), before);
        QCOMPARE(writes(), writesBefore);
        QVERIFY2(scrollPosition() > position, "the view did not scroll");
        QVERIFY(!widget->hasFocus());
    }

private Q_SLOTS:
    void init()
    {
        m_camera = openSimulatedCamera();
        m_model = std::make_unique<FeatureTreeModel>();
        m_proxy = std::make_unique<FeatureTreeProxyModel>();
        m_highlighter = std::make_unique<FeatureTreeHighlighter>();
        m_proxy->setSourceModel(m_model.get());
        m_proxy->addParameterCollection(m_camera->collection, QStringLiteral("Camera"),
                                        QStringLiteral("@CameraDevice"), false);
        m_view = std::make_unique<QTreeView>();
        m_view->setItemDelegate(
            new FeatureTreeDelegate(m_view.get(), m_proxy.get(), m_highlighter.get()));
        m_view->setModel(m_proxy.get());
        m_view->expandAll();
        m_view->resize(600, 400);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
    }
    void cleanup()
    {
        m_view.reset();
        m_proxy.reset();
        m_model.reset();
        m_camera.reset();
    }

    void shouldScrollTheTreeOverAnUnfocusedIntegerSlider()
    {
        auto* editor = editorOf<IntSliderEditor>(QStringLiteral("Width"));
        QVERIFY(editor);
        checkWheelScrollsOnly(editor->slider(), QStringLiteral("Width"));
        QCOMPARE(editor->slider()->value(), value(QStringLiteral("Width")).toInt());
    }

    void shouldScrollTheTreeOverAnUnfocusedIntegerSpinBox()
    {
        auto* editor = editorOf<IntSliderEditor>(QStringLiteral("Width"));
        QVERIFY(editor);
        checkWheelScrollsOnly(editor->spinBox(), QStringLiteral("Width"));
        QCOMPARE(editor->spinBox()->value(), value(QStringLiteral("Width")).toInt());
    }

    void shouldScrollTheTreeOverAnUnfocusedComboBox()
    {
        auto* editor = editorOf<EnumEditor>(QStringLiteral("TriggerMode"));
        QVERIFY(editor);
        const int index = editor->currentIndex();
        checkWheelScrollsOnly(editor, QStringLiteral("TriggerMode"));
        QCOMPARE(editor->currentIndex(), index);
    }

    void shouldScrollTheTreeOverAnUnfocusedFloatSliderAndSpinBox()
    {
        auto* editor = editorOf<FloatSliderEditor>(QStringLiteral("ExposureTime"));
        QVERIFY(editor);
        checkWheelScrollsOnly(editor->slider(), QStringLiteral("ExposureTime"));
        editor = editorOf<FloatSliderEditor>(QStringLiteral("ExposureTime"));
        checkWheelScrollsOnly(editor->spinBox(), QStringLiteral("ExposureTime"));
    }

    void shouldStillTurnTheValueOfTheFocusedEditor()
    {
        // Given the spin box the user clicked into
        auto* editor = editorOf<IntSliderEditor>(QStringLiteral("Width"));
        QVERIFY(editor);
        editor->spinBox()->setFocus();
        QVERIFY(editor->spinBox()->hasFocus());
        const qint64 before = value(QStringLiteral("Width")).toLongLong();
        const int position = scrollPosition();
        // When the wheel turns down over it, the value steps down and the tree stays
        turnWheelOver(editor->spinBox(), -120);
        QTRY_COMPARE(value(QStringLiteral("Width")).toLongLong(), before - 16);
        QCOMPARE(scrollPosition(), position);
    }

    void shouldGuardEditorsMadeOutsideTheDelegateOnce()
    {
        QWidget editor;
        auto* box = new VantoQtSpinBox(&editor);
        auto* slider = new QSlider(&editor);
        slider->setFocusPolicy(Qt::WheelFocus);
        EditorWheelGuard::guard(&editor);
        EditorWheelGuard::guard(&editor);
        QCOMPARE(editor.findChildren<EditorWheelGuard*>().size(), 1);
        QCOMPARE(slider->focusPolicy(), Qt::StrongFocus);
        QCOMPARE(box->focusPolicy(), Qt::StrongFocus);
    }
};

QTEST_MAIN(tst_EditorWheelGuard)
#include "tst_editorwheelguard.moc"
