#pragma once

#include "PanelView/CardLook.h"

#include <QLabel>

#include <string_view>

namespace mimkins {

/// Words of the screen, in as many lines as they need.
class Words final : public QLabel {
public:
    enum class Ink { text, subtext };

    struct Form {
        double points = 12;
        QFont::Weight weight = QFont::Normal;
        Ink ink = Ink::text;
        double kerning = 0; ///< added between letters, points
    };

    explicit Words(const Form& form);
    Words(std::string_view words, const Form& form);

    void setLook(const CardLook& look);

    /// On one line.
    int naturalWidth() const;

private:
    Form form_;
};

} // namespace mimkins
