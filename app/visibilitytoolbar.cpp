#include "visibilitytoolbar.h"

#include <QAction>
#include <QActionGroup>
#include <QKeySequence>

namespace VantoViewer {

VisibilityToolBar::VisibilityToolBar(QWidget* parent)
    : QToolBar(tr("Visibility"), parent), m_group(new QActionGroup(this))
{
    setObjectName(QStringLiteral("VantoViewer.VisibilityToolBar"));
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_group->setExclusive(true);

    struct Level {
        GenApi::EVisibility level;
        QString text;
        QString toolTip;
        Qt::Key key;
    };
    const Level levels[] = {
        {GenApi::Beginner, tr("Beginner"), tr("Show the features needed for basic camera set-up"),
         Qt::Key_1},
        {GenApi::Expert, tr("Expert"), tr("Also show the features for advanced set-up"), Qt::Key_2},
        {GenApi::Guru, tr("Guru"), tr("Show every feature, including those that need care"),
         Qt::Key_3},
    };
    for (const Level& entry : levels) {
        auto* action = new QAction(entry.text, m_group);
        action->setObjectName(QStringLiteral("VantoViewer.Visibility.") +
                              GenApi::visibilityToString(entry.level));
        action->setCheckable(true);
        action->setData(int(entry.level));
        action->setShortcut(QKeySequence(Qt::CTRL | Qt::ALT | entry.key));
        action->setToolTip(entry.toolTip + QStringLiteral(" (") +
                           action->shortcut().toString(QKeySequence::NativeText) +
                           QLatin1Char(')'));
        action->setStatusTip(entry.toolTip);
        addAction(action);
        m_actions.append(action);
    }
    m_actions.first()->setChecked(true);
    connect(m_group, &QActionGroup::triggered, this, [this](QAction* action) {
        Q_EMIT levelChosen(static_cast<GenApi::EVisibility>(action->data().toInt()));
    });
}

VisibilityToolBar::~VisibilityToolBar() = default;

GenApi::EVisibility VisibilityToolBar::level() const
{
    const QAction* checked = m_group->checkedAction();
    return checked ? static_cast<GenApi::EVisibility>(checked->data().toInt()) : GenApi::Beginner;
}

void VisibilityToolBar::setLevel(GenApi::EVisibility level)
{
    if (QAction* action = actionFor(level)) {
        action->setChecked(true);
    }
}

QAction* VisibilityToolBar::actionFor(GenApi::EVisibility level) const
{
    for (QAction* action : m_actions) {
        if (action->data().toInt() == int(level)) {
            return action;
        }
    }
    return nullptr;
}

} // namespace VantoViewer
