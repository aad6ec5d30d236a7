#pragma once

class QWidget;

namespace RTLJEX {

// Gives the fields of a page, which it knows by their names, texts for "What's This?": what each means for
// the window that is captured.
void explainFields(QWidget *page);

} // namespace RTLJEX
