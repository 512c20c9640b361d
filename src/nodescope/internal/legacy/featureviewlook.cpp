#include "featureviewlook.h"

#include <QAbstractItemView>

void applyFeatureViewLook(QAbstractItemView* view)
{
    QFont font = view->font();
    font.setPointSize(8);
    view->setFont(font);
    QPalette palette = view->palette();
    palette.setBrush(QPalette::Disabled, QPalette::Base,
                     palette.brush(QPalette::Active, QPalette::Base));
    view->setPalette(palette);
}
