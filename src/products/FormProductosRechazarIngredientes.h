#pragma once

#include <QWidget>

class ModuloPrincipal;
class ListaProductos;

// The whole menu, to tick what is out of stock. It reads the list again every time it
// becomes active, so it always opens up to date.
class FormProductosRechazarIngredientes : public QWidget {
    Q_OBJECT
public:
    explicit FormProductosRechazarIngredientes(ModuloPrincipal& m, QWidget* padre = nullptr);

    ListaProductos* ListViewProductosNoIngredientes() const { return lista_; }
    void CargarListaProductos();

protected:
    bool event(QEvent* e) override;

private:
    ModuloPrincipal& m_;
    ListaProductos* lista_;
};

// The products of the order being rejected for lack of ingredients, to tick those out of
// stock before the rejection goes. The answer flow fills it before showing it.
class FormProductosRechazarIngredientesPedido : public QWidget {
    Q_OBJECT
public:
    explicit FormProductosRechazarIngredientesPedido(ModuloPrincipal& m, QWidget* padre = nullptr);

    ListaProductos* ListViewProductosNoIngredientes() const { return lista_; }
    void CargarListaProductos();

Q_SIGNALS:
    void hechoPulsado();
    void cerrarPulsado();

protected:
    bool event(QEvent* e) override;

private:
    ModuloPrincipal& m_;
    ListaProductos* lista_;
};
