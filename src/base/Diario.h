#pragma once

#include <QLoggingCategory>

// The desk's journal for support: what happened to each order (received, on screen,
// answered, each ticket copy printed or not), one line each, through Qt's logging to
// standard error and, where there is one, the session's journal. Silence it with
// QT_LOGGING_RULES="tarvimenta.*=false".
Q_DECLARE_LOGGING_CATEGORY(diarioPedidos)
Q_DECLARE_LOGGING_CATEGORY(diarioImpresion)
