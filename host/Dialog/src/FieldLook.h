#pragma once

#include "CATDlgControls.h"

#include <QColor>
#include <QString>

class QWidget;

/// How the fields that take input stand out: one table for editors and combos.
struct FieldLook
{
    QColor (*colour)();  ///< of the sign; null: the usual look
    const char* sign;    ///< carries the meaning where colours are not seen
    const char* meaning; ///< for those who hear it
};

const FieldLook& FieldLookOf(CATDlgLook look);
/// The room that the look's sign takes in a field, in pixels; 0 without a sign.
int SignRoom(const QWidget& field, CATDlgLook look);
/// Gives a field the paper and the spoken word of its look; the sign is the field's own to paint.
void TakeLook(QWidget& field, CATDlgLook look);
