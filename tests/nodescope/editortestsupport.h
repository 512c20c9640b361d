#pragma once

#include "testsupport.h"

#include "internal/legacy/abstractitemeditor.h"
#include "internal/legacy/featuretreemodel.h"

#include <parametercollection/iadvancedparameteraccess.h>
#include <parametercollection/iparameter.h>

#include <QAbstractItemDelegate>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QSlider>
#include <QStandardItemModel>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTableView>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QtTest>

#include <exception>
#include <initializer_list>
#include <memory>
#include <utility>

// The hint of closeEditor, for QSignalSpy.
Q_DECLARE_METATYPE(QAbstractItemDelegate::EndEditHint)

// The test descriptions and the built-in camera all serve their features in this node map.
inline QString fullFeatureName(const QString& feature)
{
    return QStringLiteral("@CameraDevice/") + feature;
}

// What the value editor tests read their features from. The descriptions are opened afresh for
// every test function, so that no test sees another's writes; the built-in camera takes a while
// to open, so it is opened once per test case and closes with the test object.
class EditorFixture {
protected:
    // tree.xml
    void openTree() { m_tree = openTestDescription(QStringLiteral("tree")); }
    // The description written for the cases of the editor under test.
    void openCases(const QString& description) { m_cases = openTestDescription(description); }
    void openDescriptions(const QString& cases)
    {
        openTree();
        openCases(cases);
    }
    // A shown window to put editors in.
    void openWindow(int width)
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(width, 100);
        m_window->show();
    }
    void closeDescriptions()
    {
        m_window.reset();
        m_cases.reset();
        m_tree.reset();
    }
    // From initTestCase().
    bool openCamera()
    {
        m_camera = openSimulatedCamera();
        return m_camera->collection && camera();
    }

    Backend::DeviceParameterCollection* camera() const
    {
        return qobject_cast<Backend::DeviceParameterCollection*>(m_camera->collection.data());
    }
    QSharedPointer<ParameterCollection::IParameter> tree(const QString& feature) const
    {
        return m_tree->getParameter(fullFeatureName(feature));
    }
    QSharedPointer<ParameterCollection::IParameter> parameter(const QString& feature) const
    {
        return m_cases->getParameter(fullFeatureName(feature));
    }
    // For data tables: "tree", "camera", or any other name for the cases.
    QSharedPointer<ParameterCollection::IParameter> parameterOf(const QString& source,
                                                                const QString& feature) const
    {
        if (source == QLatin1String("tree")) {
            return tree(feature);
        }
        if (source == QLatin1String("camera")) {
            return m_camera->collection->getParameter(fullFeatureName(feature));
        }
        return parameter(feature);
    }
    // Writes `value` to the switch `feature` of the cases, then lets `dependent` read its data
    // again, as the next poll would.
    void setAndRefresh(const QString& feature, const QVariant& value,
                       const QSharedPointer<ParameterCollection::IParameter>& dependent)
    {
        parameter(feature)->setValue(value);
        m_cases->waitForDevice();
        dependent->getAdvancedParameterAccess()->refreshParameterData();
        m_cases->waitForDevice();
    }
    // The value of one of the cases once the device has carried out every write so far.
    QVariant deviceValue(const QString& feature) const
    {
        m_cases->waitForDevice();
        return parameter(feature)->getParameterData()->value;
    }

    QSharedPointer<Backend::DeviceParameterCollection> m_tree;
    QSharedPointer<Backend::DeviceParameterCollection> m_cases;
    std::unique_ptr<SimulatedCamera> m_camera;
    std::unique_ptr<QWidget> m_window;
};

// The debug output of `editor` while it loads `data`.
inline QStringList logOfLoading(AbstractItemEditor& editor,
                                const AbstractItemEditor::EditorData& data)
{
    MessageCapture log;
    editor.setEditorData(data);
    return log.lines();
}

// What the delegate and the model do around a float editor: every boxValueChanged is committed
// as the model would (written unless equal to the current value), and every new parameter data
// reloads the editor.
template <class Editor>
void wireLikeTheDelegate(Editor* editor, const AbstractItemEditor::EditorData& data)
{
    const QSharedPointer<ParameterCollection::IParameter> parameter = data.parameter;
    QObject::connect(editor, &Editor::boxValueChanged, editor, [editor, parameter] {
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
    QObject::connect(parameter.data(), &ParameterCollection::IParameter::parameterDataChanged,
                     editor, [editor, data] { editor->setEditorData(data); });
}

// Loads `editor`, wires it as the delegate does and shows it.
template <class Editor>
Editor* showLikeTheDelegate(Editor* editor, const AbstractItemEditor::EditorData& data)
{
    editor->setEditorData(data);
    wireLikeTheDelegate(editor, data);
    editor->show();
    return editor;
}

// A feature's row in a real feature tree model, and what the delegate does when an editor
// commits: hand editorData() to the model's setData for the value column.
class FeatureRow {
public:
    FeatureRow(const QSharedPointer<ParameterCollection::IParameterCollection>& collection,
               const QString& feature)
        : m_collection(collection)
    {
        m_model.addParameterCollection(collection, QStringLiteral("Camera"),
                                       QStringLiteral("@CameraDevice"), false);
        m_index = m_model.findItemByFullName(fullFeatureName(feature), nullptr, 1);
        m_parameter = collection->getParameter(fullFeatureName(feature));
    }

    QSharedPointer<ParameterCollection::IParameter> parameter() const { return m_parameter; }
    AbstractItemEditor::EditorData editorData() const { return {m_parameter, m_collection}; }
    bool commit(AbstractItemEditor& editor)
    {
        const bool written = m_model.setData(m_index, editor.editorData(), Qt::EditRole);
        m_results << written;
        return written;
    }
    // Commits on every `signal` of `editor`, as the delegate wires it.
    template <class Editor, class Signal> void commitOn(Editor& editor, Signal signal)
    {
        QObject::connect(&editor, signal, &m_model, [this, &editor] { commit(editor); });
    }
    // Every user change commits at once.
    template <class Editor> void commitOnEdit(Editor& editor)
    {
        commitOn(editor, &Editor::valueEdited);
    }
    // Loads `editor` with the row's data and commits its every edit, as the delegate wires an
    // editor it opens.
    template <class Editor> void attach(Editor& editor)
    {
        editor.setEditorData(editorData());
        commitOnEdit(editor);
    }
    const QList<bool>& commitResults() const { return m_results; }

private:
    QSharedPointer<ParameterCollection::IParameterCollection> m_collection;
    FeatureTreeModel m_model;
    QModelIndex m_index;
    QSharedPointer<ParameterCollection::IParameter> m_parameter;
    QList<bool> m_results;
};

// A window in which a line edit holds the focus, with `Editor` below it.
template <class Editor> struct FocusElsewhere {
    FocusElsewhere()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(other);
        layout->addWidget(editor);
    }
    // Shows the window active; false unless the line edit gets the focus.
    bool show()
    {
        window.show();
        QApplication::setActiveWindow(&window);
        if (!QTest::qWaitForWindowActive(&window)) {
            return false;
        }
        other->setFocus();
        return QTest::qWaitFor([this] { return other->hasFocus(); });
    }

    QWidget window;
    QLineEdit* other = new QLineEdit(&window);
    Editor* editor = new Editor(&window);
};

// A one-cell table view that edits its cell with a `Delegate`, made from the arguments given
// and the view as its parent.
template <class Delegate> class OneCellView {
public:
    template <class... Args>
    explicit OneCellView(Args&&... args)
        : delegate(new Delegate(std::forward<Args>(args)..., &view)),
          // The spy can record closeEditor only once its hint is a registered type.
          closed((qRegisterMetaType<QAbstractItemDelegate::EndEditHint>(), delegate),
                 &QAbstractItemDelegate::closeEditor)
    {
        view.setItemDelegate(delegate);
        view.setModel(&model);
    }

    // Starts editing the cell as a user would; false if the view never showed.
    bool edit()
    {
        view.show();
        if (!QTest::qWaitForWindowExposed(&view)) {
            return false;
        }
        view.edit(model.index(0, 0));
        return true;
    }
    QWidget* editor() const { return view.indexWidget(model.index(0, 0)); }

    QStandardItemModel model{1, 1};
    QTableView view;
    Delegate* delegate; // owned by the view
    QSignalSpy closed;  // closeEditor
};

inline bool giveFocus(QWidget* widget)
{
    widget->window()->show();
    QApplication::setActiveWindow(widget->window());
    widget->setFocus(Qt::OtherFocusReason);
    return QTest::qWaitFor([widget] { return widget->hasFocus(); });
}

// Returns whether the widget took the event; one it leaves lets the view scroll.
inline bool turnWheel(QWidget* widget, int delta)
{
    const QPoint center = widget->rect().center();
    QWheelEvent event(QPointF(center), QPointF(widget->mapToGlobal(center)), QPoint(),
                      QPoint(0, delta), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    event.setAccepted(false);
    QApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

// Types over the whole text, without committing it.
inline void typeOver(QAbstractSpinBox* box, const QString& text)
{
    box->selectAll();
    QTest::keyClicks(box, text);
}

inline void typeAndEnter(QAbstractSpinBox* box, const QString& text)
{
    typeOver(box, text);
    QTest::keyClick(box, Qt::Key_Enter);
}

// Selects the whole text with Ctrl+A and types over it, as a user does.
inline void selectAllAndType(QWidget* widget, const QString& text)
{
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(widget, text);
}

inline QRect sliderHandleRect(QSlider* slider)
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
    return slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle,
                                           slider);
}

inline void sendMouse(QWidget* widget, QEvent::Type type, const QPoint& pos,
                      Qt::MouseButtons buttons)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, QPointF(pos), QPointF(widget->mapToGlobal(pos)), button, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

// Takes the handle, drags it right in `moves` steps of `dx` pixels and lets go. Returns whether
// the press took hold of the handle.
inline bool dragHandle(QSlider* slider, int dx, int moves)
{
    QPoint pos = sliderHandleRect(slider).center();
    sendMouse(slider, QEvent::MouseButtonPress, pos, Qt::LeftButton);
    const bool held = slider->isSliderDown();
    for (int i = 0; i < moves; ++i) {
        pos.rx() += dx;
        sendMouse(slider, QEvent::MouseMove, pos, Qt::LeftButton);
    }
    sendMouse(slider, QEvent::MouseButtonRelease, pos, Qt::NoButton);
    return held;
}

// The first argument of every emission, as int.
inline QList<int> intsOf(const QSignalSpy& spy)
{
    QList<int> values;
    for (const QList<QVariant>& arguments : spy) {
        values << arguments.at(0).toInt();
    }
    return values;
}

// Records the key presses that reach the object it filters.
class KeyWatcher : public QObject {
public:
    explicit KeyWatcher(QObject* parent = nullptr) : QObject(parent) {}

    QList<int> keys;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            keys << static_cast<QKeyEvent*>(event)->key();
        }
        return QObject::eventFilter(watched, event);
    }
};

// Presses `keys` in `target` and returns those that got to `watched`, as an event filter there
// sees them: the delegate's filter on an editor, or the view around it.
inline QList<int> keysReaching(QObject* watched, QWidget* target,
                               std::initializer_list<Qt::Key> keys)
{
    KeyWatcher watcher;
    watched->installEventFilter(&watcher);
    for (const Qt::Key key : keys) {
        QTest::keyClick(target, key);
    }
    return watcher.keys;
}

// Views select all of a spin box editor's text when they create it, before showing it, focus
// or not. Shown without the focus, the box must paint no selection; a selection made
// afterwards, for typing, stays.
template <class Box> void checkNoSelectionWhenShownWithoutFocus()
{
    auto parent = std::make_unique<QWidget>();
    // The focus is elsewhere, as in a tree whose rows hold editors
    auto* elsewhere = new QLineEdit(parent.get());
    elsewhere->setFocus();
    auto* box = new Box(parent.get());
    box->move(0, 40);
    box->setValue(5);
    box->selectAll();
    auto* edit = box->template findChild<QLineEdit*>();
    QVERIFY(edit->hasSelectedText());
    parent->show();
    QVERIFY(QTest::qWaitForWindowExposed(parent.get()));
    QVERIFY(!box->hasFocus());
    QVERIFY(!edit->hasSelectedText());
    box->selectAll();
    QVERIFY(edit->hasSelectedText());
}
