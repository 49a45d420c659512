<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>FtpMachine</name>
    <message>
        <source>Invalid character in name</source>
        <translation>Carácter no válido en el nombre</translation>
    </message>
    <message>
        <source>Host %1 not found</source>
        <translation>No se encontró el servidor %1</translation>
    </message>
    <message>
        <source>Connection refused to host %1</source>
        <translation>El servidor %1 rechazó la conexión</translation>
    </message>
    <message>
        <source>Connection to %1 closed</source>
        <translation>Conexión con %1 cerrada</translation>
    </message>
    <message>
        <source>The local file has changed</source>
        <translation>El archivo local ha cambiado</translation>
    </message>
    <message>
        <source>Connecting to host failed:
%1</source>
        <translation>Error al conectar con el servidor:
%1</translation>
    </message>
    <message>
        <source>Login failed:
%1</source>
        <translation>Error al iniciar sesión:
%1</translation>
    </message>
    <message>
        <source>Uploading file failed:
%1</source>
        <translation>Error al subir el archivo:
%1</translation>
    </message>
    <message>
        <source>Connection refused for data connection</source>
        <translation>Conexión de datos rechazada</translation>
    </message>
    <message>
        <source>Data connection closed</source>
        <translation>Conexión de datos cerrada</translation>
    </message>
</context>
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
    <name>Q3UrlOperator</name>
    <message>
        <source>The protocol `%1&apos; is not supported</source>
        <translation>No se admite el protocolo «%1»</translation>
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
    <name>UrlCopy</name>
    <message>
        <source>Could not open
%1</source>
        <translation>No se pudo abrir
%1</translation>
    </message>
    <message>
        <source>Host %1 found</source>
        <translation>Servidor %1 encontrado</translation>
    </message>
    <message>
        <source>Connected to host %1</source>
        <translation>Conectado al servidor %1</translation>
    </message>
    <message>
        <source>Connection to %1 closed</source>
        <translation>Conexión con %1 cerrada</translation>
    </message>
    <message>
        <source>Could not remove file or directory
%1</source>
        <translation>No se pudo eliminar el archivo o la carpeta
%1</translation>
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
