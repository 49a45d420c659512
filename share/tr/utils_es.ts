<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>ImagePropertiesDialog</name>
    <message>
        <source>Image Properties</source>
        <translation>Propiedades de la imagen</translation>
    </message>
    <message>
        <source>Width [pixels]</source>
        <translation>Anchura [píxeles]</translation>
    </message>
    <message>
        <source>Height [pixels]</source>
        <translation>Altura [píxeles]</translation>
    </message>
    <message>
        <source>Bit Depth</source>
        <translation>Profundidad de bits</translation>
    </message>
    <message>
        <source>Colors in Palette</source>
        <translation>Colores de la paleta</translation>
    </message>
    <message>
        <source>Grayscale</source>
        <translation>Escala de grises</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Bytes (not including palette)</source>
        <translation>Bytes (sin la paleta)</translation>
    </message>
    <message>
        <source>Bytes per line</source>
        <translation>Bytes por línea</translation>
    </message>
    <message>
        <source>Zoom coefficient</source>
        <translation>Coeficiente de zoom</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>PropertiesDialog</name>
    <message>
        <source>Image Properties</source>
        <translation>Propiedades de la imagen</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propiedades</translation>
    </message>
    <message>
        <source>Width [pixels]</source>
        <translation>Anchura [píxeles]</translation>
    </message>
    <message>
        <source>Height [pixels]</source>
        <translation>Altura [píxeles]</translation>
    </message>
    <message>
        <source>Bit Depth</source>
        <translation>Profundidad de bits</translation>
    </message>
    <message>
        <source>Colors In Pallette</source>
        <translation>Colores de la paleta</translation>
    </message>
    <message>
        <source>GrayScale</source>
        <translation>Escala de grises</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>Bytes</translation>
    </message>
    <message>
        <source>Bytes per line</source>
        <translation>Bytes por línea</translation>
    </message>
    <message>
        <source>Zoom Coefficient</source>
        <translation>Coeficiente de zoom</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Aceptar</translation>
    </message>
    <message>
        <source>Alt+O</source>
        <translation>Alt+A</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>Q3ScrollView</name>
    <message>
        <source>Horizontal scroll bar</source>
        <translation>Barra de desplazamiento horizontal</translation>
    </message>
    <message>
        <source>Vertical scroll bar</source>
        <translation>Barra de desplazamiento vertical</translation>
    </message>
</context>
<context>
    <name>ResizeDialog</name>
    <message>
        <source>Resize</source>
        <translation>Cambiar tamaño</translation>
    </message>
    <message>
        <source>Pixel Dimensions</source>
        <translation>Dimensiones en píxeles</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Anchura</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Altura</translation>
    </message>
    <message>
        <source>Invalid Number</source>
        <translation>Número no válido</translation>
    </message>
    <message>
        <source>Check if Width and Height
contain non-digit characters
or more than 5 digits.</source>
        <translation>Compruebe si la anchura y la altura
contienen caracteres que no son dígitos
o más de 5 dígitos.</translation>
    </message>
    <message>
        <source>Image side is too small</source>
        <translation>El lado de la imagen es demasiado pequeño</translation>
    </message>
    <message>
        <source>Set Width and Height to 10 pixels or more.
</source>
        <translation>Indique una anchura y una altura de al menos 10 píxeles.
</translation>
    </message>
    <message>
        <source>Resulting size is too big</source>
        <translation>El tamaño resultante es demasiado grande</translation>
    </message>
    <message>
        <source>Decrease Width and Height
to fit the image in computer&apos;s memory.</source>
        <translation>Reduzca la anchura y la altura
para que la imagen quepa en la memoria del equipo.</translation>
    </message>
</context>
<context>
    <name>SimplePreviewDialog</name>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
    <message>
        <source>Page of %1 x %2 pixels, shown at %3 x %4.</source>
        <translation>Página de %1 x %2 píxeles, mostrada a %3 x %4.</translation>
    </message>
</context>
<context>
    <name>dialog_frame</name>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
</TS>
