#include "SettingsView/Words.h"

#include "Drawing/Qt/Conversions.h"
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
    QFont font = controls::font(look, form_.points, form_.weight);
    if (form_.kerning > 0) {
        font.setLetterSpacing(QFont::AbsoluteSpacing, form_.kerning);
    }
    setFont(font);
    const PetTheme& theme = *look.theme;
    const Color& color = form_.ink == Ink::text ? theme.text : theme.subtext;
    QPalette palette = this->palette();
    palette.setColor(QPalette::WindowText, qt::color(color));
    setPalette(palette);
}

int Words::naturalWidth() const {
    return controls::widthOf(text(), font()) + 1;
}

} // namespace mimkins
