#include "featuretreedelegate.h"

#include "abstractitemeditor.h"
#include "checkboxeditor.h"
#include "editorwheelguard.h"
#include "enumeditor.h"
#include "featuretreehighlighter.h"
#include "featuretreeinodeitem.h"
#include "floateditor.h"
#include "floatslidereditor.h"
#include "ifeaturetreemodelextension.h"
#include "inteditor.h"
#include "intslidereditor.h"
#include "toolbuttoneditor.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDesktopWidget>
#include <QPainter>
#include <QScreen>

using namespace ParameterCollection;

namespace {

bool isSliderRepresentation(const QString& representation)
{
    return representation == QLatin1String("Linear") ||
           representation == QLatin1String("Logarithmic");
}

QString representationOf(const IParameter& parameter)
{
    try {
        return parameter.getProperty(QStringLiteral("Representation"));
    } catch (...) {
        return QString();
    }
}

} // namespace

FeatureTreeDelegate::FeatureTreeDelegate(QObject* parent, IFeatureTreeModelExtension* extension,
                                         FeatureTreeHighlighter* highlighter)
    : QStyledItemDelegate(parent), m_extension(extension), m_highlighter(highlighter)
{}

QWidget* FeatureTreeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                           const QModelIndex& index) const
{
    if (index.row() < 0 || index.column() < 0 || !index.model() || !m_extension) {
        return nullptr;
    }
    auto* item = dynamic_cast<FeatureTreeINodeItem*>(m_extension->getFeatureTreeItem(index));
    if (!item) {
        return nullptr;
    }
    // Read-only and write-only features get an editor; those that are absent do not.
    if (item->getAccessMode() < GenApi::WO) {
        return nullptr;
    }
    const QSharedPointer<IParameter> parameter = item->node();
    switch (item->editorType()) {
    case FeatureTreeItem::IntEditorType:
    case FeatureTreeItem::IntSliderEditorType:
        return prepared(
            createIntEditor(parent, option, qSharedPointerObjectCast<IIntegerParameter>(parameter)),
            index);
    case FeatureTreeItem::FloatEditorType:
    case FeatureTreeItem::FloatSliderEditorType:
        return prepared(createFloatEditor(parent, option,
                                          qSharedPointerObjectCast<IFloatParameter>(parameter),
                                          item->collection()),
                        index);
    case FeatureTreeItem::EnumEditorType:
        return prepared(
            createEnumEditor(parent, option, qSharedPointerObjectCast<IEnumParameter>(parameter)),
            index);
    case FeatureTreeItem::BoolEditorType:
        return prepared(createCheckBoxEditor(
                            parent, option, qSharedPointerObjectCast<IBooleanParameter>(parameter)),
                        index);
    case FeatureTreeItem::CommandEditorType:
        return prepared(createToolButtonEditor(
                            parent, option, qSharedPointerObjectCast<ICommandParameter>(parameter)),
                        index);
    default:
        // Strings, and anything unknown, get the line edit Qt makes for the edit value.
        return prepared(QStyledItemDelegate::createEditor(parent, option, index), index);
    }
}

QWidget* FeatureTreeDelegate::prepared(QWidget* editor, const QModelIndex& index) const
{
    if (!editor) {
        return nullptr;
    }
    EditorWheelGuard::guard(editor);
    showLost(editor, index);
    return editor;
}

void FeatureTreeDelegate::showLost(QWidget* editor, const QModelIndex& index) const
{
    auto* item = m_extension
                     ? dynamic_cast<FeatureTreeINodeItem*>(m_extension->getFeatureTreeItem(index))
                     : nullptr;
    if (!item || !item->isDeviceLost()) {
        return;
    }
    // The editor keeps showing the last value, greyed, and takes no input.
    editor->setEnabled(false);
    editor->setToolTip(FeatureTreeINodeItem::lostText());
}

QWidget* FeatureTreeDelegate::createEnumEditor(QWidget* parent, const QStyleOptionViewItem&,
                                               QSharedPointer<IEnumParameter> parameter) const
{
    if (!parameter) {
        return nullptr;
    }
    auto* editor = new EnumEditor(parent);
    // A choice from the list is written at once, as the user expects of a drop-down.
    connect(editor, &EnumEditor::valueEdited, this, &FeatureTreeDelegate::emitCommitData);
    return editor;
}

QWidget*
FeatureTreeDelegate::createToolButtonEditor(QWidget* parent, const QStyleOptionViewItem&,
                                            QSharedPointer<ICommandParameter> parameter) const
{
    if (!parameter) {
        return nullptr;
    }
    auto* editor = new ToolButtonEditor(parent);
    connect(editor, &ToolButtonEditor::valueEdited, this, &FeatureTreeDelegate::emitCommitData);
    return editor;
}

QWidget*
FeatureTreeDelegate::createCheckBoxEditor(QWidget* parent, const QStyleOptionViewItem&,
                                          QSharedPointer<IBooleanParameter> parameter) const
{
    if (!parameter) {
        return nullptr;
    }
    auto* editor = new CheckBoxEditor(parent);
    connect(editor, &CheckBoxEditor::valueEdited, this, &FeatureTreeDelegate::emitCommitData);
    return editor;
}

QWidget* FeatureTreeDelegate::createIntEditor(QWidget* parent, const QStyleOptionViewItem&,
                                              QSharedPointer<IIntegerParameter> parameter) const
{
    if (!parameter) {
        return nullptr;
    }
    if (isSliderRepresentation(representationOf(*parameter))) {
        auto* editor = new IntSliderEditor(parent);
        connect(editor, &IntSliderEditor::valueChanged, this, &FeatureTreeDelegate::emitCommitData);
        connect(editor, &IntSliderEditor::notice, this, &FeatureTreeDelegate::notice);
        return editor;
    }
    // Typed numbers are written when editing ends, not at every digit.
    auto* editor = new IntEditor(parent);
    connect(editor, &IntEditor::notice, this, &FeatureTreeDelegate::notice);
    return editor;
}

QWidget*
FeatureTreeDelegate::createFloatEditor(QWidget* parent, const QStyleOptionViewItem&,
                                       QSharedPointer<IFloatParameter> parameter,
                                       QSharedPointer<IParameterCollection> collection) const
{
    if (!parameter) {
        return nullptr;
    }
    const QString aliasKey = parameter->getName() + QStringLiteral("/Alias");
    if (isSliderRepresentation(representationOf(*parameter))) {
        auto* editor = new FloatSliderEditor(parent, collection);
        connect(editor, &FloatSliderEditor::boxValueChanged, this,
                &FeatureTreeDelegate::emitCommitData);
        connect(editor, &FloatSliderEditor::notice, this, &FeatureTreeDelegate::notice);
        return editor;
    }
    auto* editor = new FloatEditor(parent, aliasKey);
    connect(editor, &FloatEditor::boxValueChanged, this, &FeatureTreeDelegate::emitCommitData);
    connect(editor, &FloatEditor::notice, this, &FeatureTreeDelegate::notice);
    return editor;
}

void FeatureTreeDelegate::emitCommitData()
{
    if (auto* widget = qobject_cast<QWidget*>(sender())) {
        Q_EMIT commitData(widget);
    }
}

void FeatureTreeDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    if (index.column() == 1) {
        FeatureTreeItem* item = m_extension ? m_extension->getFeatureTreeItem(index) : nullptr;
        if (!item) {
            return;
        }
        auto* itemEditor = dynamic_cast<AbstractItemEditor*>(editor);
        auto* nodeItem = dynamic_cast<FeatureTreeINodeItem*>(item);
        if (itemEditor && nodeItem) {
            itemEditor->setEditorData({nodeItem->node(), nodeItem->collection()});
            // Loading enables an editor by the data, which may predate the loss.
            showLost(editor, index);
            return;
        }
        // Never replace what the user is typing with a value that a poll brought in.
        if (editor->hasFocus()) {
            return;
        }
    }
    QStyledItemDelegate::setEditorData(editor, index);
}

void FeatureTreeDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                       const QModelIndex& index) const
{
    auto* itemEditor = dynamic_cast<AbstractItemEditor*>(editor);
    if (index.column() == 1 && itemEditor) {
        model->setData(index, itemEditor->editorData(), Qt::EditRole);
        return;
    }
    QStyledItemDelegate::setModelData(editor, model, index);
}

void FeatureTreeDelegate::destroyEditor(QWidget* editor, const QModelIndex&) const
{
    // The editor may still be inside one of its own signal handlers.
    editor->deleteLater();
}

QSize FeatureTreeDelegate::scaledSizeHint(const QSize& base, const QFont& font, qreal logicalDpi)
{
    if (logicalDpi / 96.0 <= 1.0) {
        return base;
    }
    QFont small(font);
    small.setPointSize(8);
    return QSize(base.width(), QFontMetrics(small).height() + 4);
}

QSize FeatureTreeDelegate::sizeHint(const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const
{
    const QSize base = QStyledItemDelegate::sizeHint(option, index);
    const QList<QScreen*> screens = QGuiApplication::screens();
    const int number = QApplication::desktop()->screenNumber();
    const QScreen* screen = number >= 0 && number < screens.size()
                                ? screens.at(number)
                                : QGuiApplication::primaryScreen();
    return screen ? scaledSizeHint(base, option.font, screen->logicalDotsPerInch()) : base;
}

void FeatureTreeDelegate::initStyleOption(QStyleOptionViewItem* option,
                                          const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // Where an editor covers the value, the value's text would only show through its gaps
    // (beside a check box, say): the editor shows the value itself.
    const auto* view = qobject_cast<const QAbstractItemView*>(option->widget);
    if (index.column() == 1 && view && view->indexWidget(index)) {
        option->text.clear();
    }
}

void FeatureTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const
{
    if (index.column() != 0 || !m_highlighter) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem opt(option);
    initStyleOption(&opt, index);
    const QVector<QPair<int, int>> matches = m_highlighter->getIndicesToHighlight(opt.text);
    if (matches.isEmpty()) {
        // Nothing to mark, but the selected name is bold all the same: the base draws it.
        QStyleOptionViewItem plain(option);
        if (plain.state & QStyle::State_Selected) {
            plain.font.setWeight(75);
        }
        QStyledItemDelegate::paint(painter, plain, index);
        return;
    }
    if (opt.state & QStyle::State_Selected) {
        opt.font.setWeight(75);
    }
    const QWidget* widget = opt.widget;
    QStyle* style = widget ? widget->style() : QApplication::style();
    const QString text = opt.text;
    const QRect textRect =
        style->subElementRect(QStyle::SE_ItemViewItemText, &opt, widget).adjusted(2, 0, -2, 0);
    // The style draws the row's background; the text is drawn here, over the marks.
    opt.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);

    const QFontMetrics metrics(opt.font);
    const QString shown = metrics.elidedText(text, Qt::ElideRight, textRect.width());
    // Eliding keeps the start of the text: marks up to the ellipsis stay where they were.
    const int visible = shown == text ? text.size() : qMax(0, shown.size() - 1);

    painter->save();
    painter->setFont(opt.font);
    const QColor colour = m_highlighter->getHighlightColor();
    for (const auto& match : matches) {
        const int start = match.first;
        const int end = qMin(match.second, visible);
        if (start >= end) {
            continue;
        }
        const int x = textRect.left() + metrics.horizontalAdvance(text.left(start));
        const int width = metrics.horizontalAdvance(text.mid(start, end - start));
        const QRect run(x, textRect.top() + (textRect.height() - metrics.height()) / 2, width,
                        metrics.height());
        painter->fillRect(run, colour);
        // A frame in the fill colour widens the mark a little, so it does not touch the glyphs.
        painter->setPen(QPen(colour, 3));
        painter->drawRect(run);
    }
    const QPalette::ColorGroup group =
        opt.state & QStyle::State_Enabled ? QPalette::Normal : QPalette::Disabled;
    const QVariant foreground = index.data(Qt::ForegroundRole);
    painter->setPen(foreground.canConvert<QBrush>()
                        ? foreground.value<QBrush>().color()
                        : opt.palette.color(group, opt.state & QStyle::State_Selected
                                                       ? QPalette::HighlightedText
                                                       : QPalette::Text));
    painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter, shown);
    painter->restore();
}
