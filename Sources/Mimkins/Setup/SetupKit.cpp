#include "Setup/SetupKit.h"

#include "Drawing/Qt/Conversions.h"

#include <QAccessible>

namespace mimkins::kit {

namespace {

constexpr int longestUnbroken = 18;
constexpr QChar breakHere(0x200B); ///< takes no room

/// A long word with places to break: behind its marks, and where there are none for long, anywhere.
QString breakable(const QString& word) {
    QString broken;
    int unbroken = 0;
    for (const QChar character : word) {
        broken += character;
        ++unbroken;
        const bool mark = QString("./-_").contains(character);
        if ((mark || unbroken >= longestUnbroken) && !character.isHighSurrogate()) {
            broken += breakHere;
            unbroken = 0;
        }
    }
    return broken;
}

QString withBreaks(const QString& words) {
    QStringList pieces = words.split(' ');
    for (QString& piece : pieces) {
        if (piece.size() > longestUnbroken) {
            piece = breakable(piece);
        }
    }
    return pieces.join(' ');
}

} // namespace

QLabel* wrappedLabel(Qt::Alignment alignment) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(alignment);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    label->setSizePolicy(policy);
    return label;
}

void show(QLabel& label, std::string_view words) {
    const QString whole = qt::text(words);
    label.setText(withBreaks(whole));
    label.setAccessibleName(whole);
}

void showMessage(QLabel& label, const std::optional<std::string>& message) {
    label.setVisible(message.has_value());
    if (message && label.accessibleName() != qt::text(*message)) {
        show(label, *message);
        QAccessibleEvent news(&label, QAccessible::Alert);
        QAccessible::updateAccessibility(&news);
    }
}

} // namespace mimkins::kit
