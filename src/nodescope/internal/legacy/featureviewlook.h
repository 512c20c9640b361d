#pragma once

class QAbstractItemView;

// The look the feature tree and the feature table share: an 8-point font, and rows of features
// that cannot be changed keep the normal background (only their text greys).
void applyFeatureViewLook(QAbstractItemView* view);
