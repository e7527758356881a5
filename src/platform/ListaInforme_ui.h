#pragma once

class QTreeWidget;

// Makes a tree widget a report-style list: rows of plain text under column headers, whole-row
// selection and grid lines. It paints without the style's gradients and text layout passes,
// because the order window that holds it repaints whole at every flash, every second, on the
// counter's often modest computer. Only the display role, the text alignment and the
// foreground are drawn: check boxes and icons are not, so lists with those keep the stock
// painting.
void PrepararListaInforme(QTreeWidget* lista);
