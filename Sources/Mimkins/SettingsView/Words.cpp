#include "SettingsView/Words.h"

#include "Drawing/Qt/Conversions.h"
#include "PanelView/Labels.h"
#include "SettingsView/ControlDrawing.h"

namespace mimkins {

Words::Words(const Form& form) : form_(form) {
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setFocusPolicy(Qt::NoFocus);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

Words::Words(std::string_view words, const Form& form) : Words(form) {
    setText(qt::text(words));
}

void Words::setLook(const CardLook& look) {
    QFont font = look.typography.systemFont(form_.points, form_.weight);
    if (form_.kerning > 0) {
        font.setLetterSpacing(QFont::AbsoluteSpacing, form_.kerning);
    }
    dress(*this, font, form_.ink == Ink::text ? look.theme->text : look.theme->subtext);
}

int Words::naturalWidth() const {
    return controls::widthOf(text(), font()) + 1;
}

} // namespace mimkins
