#pragma once

#include <QLineEdit>
#include <QString>

class QAction;

namespace Plugin {
namespace Nodescope {
namespace Internal {
namespace View {

// Stands in for the use-case box while a use case is active: shows the use case's name on a
// highlighted background, and a cross that ends the use case.
class CUseCaseEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit CUseCaseEdit(QWidget* parent = nullptr);

    // The text as given, before eliding.
    QString fullText() const { return m_fullText; }
    QAction* crossAction() const { return m_crossAction; }

    void updateColors();

public Q_SLOTS:
    // Hides QLineEdit::setText on purpose: the text shown is elided to the field.
    void setText(const QString& text);

Q_SIGNALS:
    void onCrossActionTriggered();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void applyFontSize();
    void updateElidedText();

    QString m_fullText;
    QAction* m_crossAction = nullptr; // owned by this widget
};

} // namespace View
} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
