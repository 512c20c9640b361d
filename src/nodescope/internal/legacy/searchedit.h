#pragma once

#include <QColor>
#include <QLineEdit>
#include <QString>

class QAction;

// The search field above the tree: a lens while empty, a clearing button and the search
// highlight as background while it holds text, and a grey hint text while empty.
class SearchEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit SearchEdit(QWidget* parent = nullptr);

    void setShadowDisplayString(const QString& text);
    QString shadowDisplayString() const { return m_shadowDisplayString; }

    // The background while the field holds text, the same yellow as the marks in the tree.
    static QColor highlightColor();

public Q_SLOTS:
    void onTextChanged(const QString& text);
    void updateColors();

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void applyFont();
    void updateLensIcon();
    int shadowLeft() const;

    QString m_shadowDisplayString;
    QAction* m_lensAction = nullptr;  // owned as QObject child
    QAction* m_clearAction = nullptr; // owned as QObject child
};
