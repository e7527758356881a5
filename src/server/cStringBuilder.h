#pragma once

#include <QString>
#include <QStringView>

// The chunked text buffer of the JSON reader. It reports the classic figures: capacity
// grows by whole chunks (8192 characters at creation) and the counts kept are bytes, two
// per character, while the members speak in characters. The storage underneath grows
// geometrically, so appending stays amortised constant time however the chunk is set.
class cStringBuilder {
public:
    static constexpr int TrozoInicialBytes = 16384;

    int Length() const { return usados_ / 2; }
    int Capacity() const { return capacidad_ / 2; }
    int ChunkSize() const { return trozo_ / 2; }
    void setChunkSize(int caracteres) { trozo_ = caracteres * 2; }

    QString toString() const { return texto_; }
    // Replaces the whole content, growing first; an empty text drops the storage.
    void setTheString(const QString& texto);

    void Clear();
    void AppendNL(QStringView s);
    void Append(QStringView s);
    void AppendByVal(const QString& s) { Append(QString(s)); }
    // Inserts at a zero-based character index; error 9 when the index is past the end.
    void Insert(int indice, QStringView s);
    void InsertByVal(int indice, const QString& s) { Insert(indice, QString(s)); }
    // Removes `largo` characters from a zero-based index; error 9 past the end.
    void Remove(int indice, int largo);
    // One-based position of `s` from the one-based `inicio`, compare 0 exact, 1 ignoring
    // case; 0 when absent or when the hit lies past the text held. Error 5 for an
    // `inicio` below 1 or another comparison.
    int Find(const QString& s, int inicio = 1, int compare = 0) const;
    // Gives back whole chunks of unused capacity.
    void HeapMinimize();

private:
    void crecerPara(qint64 bytesNecesarios);

    QString texto_;
    int usados_ = 0;
    int capacidad_ = 0;
    int trozo_ = TrozoInicialBytes;
};
