#include "server/cStringBuilder.h"

#include "base/ErrorEjecucion.h"

void cStringBuilder::crecerPara(qint64 bytesNecesarios) {
    if (bytesNecesarios <= capacidad_) {
        return;
    }
    if (trozo_ <= 0) {
        capacidad_ = static_cast<int>(bytesNecesarios);
        return;
    }
    const qint64 falta = bytesNecesarios - capacidad_;
    const qint64 trozos = (falta + trozo_ - 1) / trozo_;
    capacidad_ = static_cast<int>(capacidad_ + trozos * trozo_);
}

void cStringBuilder::setTheString(const QString& texto) {
    if (texto.isEmpty()) {
        Clear();
        return;
    }
    crecerPara(static_cast<qint64>(texto.size()) * 2);
    texto_ = texto;
    usados_ = static_cast<int>(texto.size() * 2);
}

void cStringBuilder::Clear() {
    texto_ = QString();
    usados_ = 0;
    capacidad_ = 0;
}

void cStringBuilder::AppendNL(QStringView s) {
    Append(s);
    Append(u"\r\n");
}

void cStringBuilder::Append(QStringView s) {
    if (s.isEmpty()) {
        return;
    }
    crecerPara(usados_ + static_cast<qint64>(s.size()) * 2);
    texto_.append(s);
    usados_ += static_cast<int>(s.size() * 2);
}

void cStringBuilder::Insert(int indice, QStringView s) {
    if (indice < 0 || indice > Length()) {
        throw ErrorEjecucion(ErrorEjecucion::SubindiceFueraDeIntervalo);
    }
    // One chunk is added when needed; a longer text grows the storage as far as it
    // needs rather than running over it.
    const qint64 necesarios = usados_ + static_cast<qint64>(s.size()) * 2;
    if (necesarios > capacidad_) {
        capacidad_ += trozo_ > 0 ? trozo_ : 0;
        crecerPara(necesarios);
    }
    texto_.insert(indice, s);
    usados_ += static_cast<int>(s.size() * 2);
}

void cStringBuilder::Remove(int indice, int largo) {
    if (indice < 0 || largo < 0 || indice > Length() || indice + largo > Length()) {
        throw ErrorEjecucion(ErrorEjecucion::SubindiceFueraDeIntervalo);
    }
    texto_.remove(indice, largo);
    usados_ -= largo * 2;
}

int cStringBuilder::Find(const QString& s, int inicio, int compare) const {
    if (inicio < 1 || (compare != 0 && compare != 1)) {
        throw ErrorEjecucion(ErrorEjecucion::ArgumentoNoValido);
    }
    // The classic search runs over the whole buffer, the blanks of the unused capacity
    // included; a hit that starts there is no hit.
    const QString buffer = texto_ + QString(Capacity() - Length(), u' ');
    if (inicio > buffer.size()) {
        return 0;
    }
    const auto caso = compare == 0 ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const qsizetype p = buffer.indexOf(s, inicio - 1, caso);
    if (p < 0 || p + 1 > Length()) {
        return 0;
    }
    return static_cast<int>(p + 1);
}

void cStringBuilder::HeapMinimize() {
    if (trozo_ > 0) {
        while (capacidad_ - usados_ > trozo_) {
            capacidad_ -= trozo_;
        }
    }
    texto_.squeeze();
}
