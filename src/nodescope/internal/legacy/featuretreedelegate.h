#pragma once

#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>

#include <QSharedPointer>
#include <QStyledItemDelegate>

class FeatureTreeHighlighter;
class IFeatureTreeModelExtension;

// Opens the value editor that fits a feature, feeds it from the feature and writes its value
// back through the model; paints the name column with the search marks. Serves the feature
// tree and the feature table alike.
class FeatureTreeDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    FeatureTreeDelegate(QObject* parent, IFeatureTreeModelExtension* extension,
                        FeatureTreeHighlighter* highlighter);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    QWidget* createEnumEditor(QWidget* parent, const QStyleOptionViewItem& option,
                              QSharedPointer<ParameterCollection::IEnumParameter> parameter) const;
    QWidget*
    createToolButtonEditor(QWidget* parent, const QStyleOptionViewItem& option,
                           QSharedPointer<ParameterCollection::ICommandParameter> parameter) const;
    QWidget*
    createCheckBoxEditor(QWidget* parent, const QStyleOptionViewItem& option,
                         QSharedPointer<ParameterCollection::IBooleanParameter> parameter) const;
    QWidget*
    createIntEditor(QWidget* parent, const QStyleOptionViewItem& option,
                    QSharedPointer<ParameterCollection::IIntegerParameter> parameter) const;
    QWidget*
    createFloatEditor(QWidget* parent, const QStyleOptionViewItem& option,
                      QSharedPointer<ParameterCollection::IFloatParameter> parameter,
                      QSharedPointer<ParameterCollection::IParameterCollection> collection) const;

    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    // The row height rule: on a scaled display (above 96 dpi), an 8-point font plus 4 pixels.
    static QSize scaledSizeHint(const QSize& base, const QFont& font, qreal logicalDpi);

Q_SIGNALS:
    // What an editor has to tell about the user's typing, for the status line.
    void notice(const QString& text);

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private Q_SLOTS:
    void emitCommitData();

private:
    // Every editor: the wheel is left to the view, and a lost camera's editors take nothing.
    QWidget* prepared(QWidget* editor, const QModelIndex& index) const;
    void showLost(QWidget* editor, const QModelIndex& index) const;

    IFeatureTreeModelExtension* m_extension; // not owned
    FeatureTreeHighlighter* m_highlighter;   // not owned; may be null
};
