// The numbers of racks and slots.
#pragma once

#include <QHeaderView>

/// Measures only its last section, whose text is the longest. The base class measures up to 200 sections at each change
/// of the racks.
class NumberHeader : public QHeaderView {
public:
    using QHeaderView::QHeaderView;

    QSize sizeHint() const override
    {
        return count() == 0 ? QHeaderView::sizeHint() : sectionSizeFromContents(count() - 1);
    }
};
