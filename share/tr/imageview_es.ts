<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>ImageDocument</name>
    <message>
        <source>Error saving TIFF image!</source>
        <translation>¡Error al guardar la imagen TIFF!</translation>
    </message>
    <message>
        <source>Multipage image doesn&apos;t supported with format &lt;%1&gt;</source>
        <translation>El formato &lt;%1&gt; no admite imágenes de varias páginas</translation>
    </message>
    <message>
        <source>Can not open file for write: 
%1</source>
        <translation>No se puede abrir el archivo para escritura: 
%1</translation>
    </message>
    <message>
        <source>The pages that are not open cannot be kept.</source>
        <translation>Las páginas que no están abiertas no se pueden conservar.</translation>
    </message>
    <message>
        <source>This is no plain file.</source>
        <translation>No es un archivo normal.</translation>
    </message>
    <message>
        <source>A file of this format cannot be larger than %1.</source>
        <extracomment>%1 is a size in bytes, such as &quot;4 GiB&quot;</extracomment>
        <translation>Un archivo de este formato no puede ser mayor de %1.</translation>
    </message>
    <message>
        <source>An image of %1 x %2 pixels cannot be saved in format &lt;%3&gt; at its size.</source>
        <translation>Una imagen de %1 x %2 píxeles no se puede guardar en formato &lt;%3&gt; a su tamaño.</translation>
    </message>
</context>
<context>
    <name>ImageFileDialog</name>
    <message>
        <source>Can&apos;t append &apos;%1&apos; extension, file name is too long.</source>
        <translation>No se puede añadir la extensión «%1»: el nombre de archivo es demasiado largo.</translation>
    </message>
    <message>
        <source>File &apos;%1&apos; already exists.
Do you want to replace it?</source>
        <translation>El archivo «%1» ya existe.
¿Desea reemplazarlo?</translation>
    </message>
</context>
<context>
    <name>ImageFormat</name>
    <message>
        <source>All graphic files</source>
        <translation>Todos los archivos de imagen</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Todos los archivos</translation>
    </message>
    <message>
        <source>Tagged Image File Format</source>
        <translation>Tagged Image File Format</translation>
    </message>
    <message>
        <source>Multipage TIFF</source>
        <translation>TIFF de varias páginas</translation>
    </message>
    <message>
        <source>Windows Bitmaps</source>
        <translation>Mapas de bits de Windows</translation>
    </message>
    <message>
        <source>Portable Network Graphics</source>
        <translation>Portable Network Graphics</translation>
    </message>
    <message>
        <source>Portable Bitmap Monochrome</source>
        <translation>Portable Bitmap monocromo</translation>
    </message>
    <message>
        <source>Portable Bitmap Grayscale</source>
        <translation>Portable Bitmap en escala de grises</translation>
    </message>
    <message>
        <source>Portable Bitmap Colorful</source>
        <translation>Portable Bitmap en color</translation>
    </message>
</context>
<context>
    <name>ImageView</name>
    <message>
        <source>Page</source>
        <translation>Página</translation>
    </message>
    <message>
        <source>Page picture</source>
        <translation>Imagen de la página</translation>
    </message>
    <message>
        <source>No image load</source>
        <translation>No hay ninguna imagen cargada</translation>
    </message>
    <message>
        <source>[%1x%2]</source>
        <translation>[%1x%2]</translation>
    </message>
    <message>
        <source> (%1,%2)</source>
        <translation> (%1,%2)</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open File</source>
        <translation>Abrir archivo</translation>
    </message>
    <message>
        <source>Save File As</source>
        <translation>Guardar archivo como</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Guardar todo</translation>
    </message>
    <message>
        <source>Choose Type</source>
        <translation>Elegir tipo</translation>
    </message>
    <message>
        <source>Please, choose the type explicitly.</source>
        <translation>Elija el tipo de forma explícita.</translation>
    </message>
    <message>
        <source>Unsupported Format</source>
        <translation>Formato no admitido</translation>
    </message>
    <message>
        <source>Image format %1 is not supported!</source>
        <translation>¡El formato de imagen %1 no es compatible!</translation>
    </message>
    <message>
        <source>Save in:</source>
        <translation>Guardar en:</translation>
    </message>
</context>
<context>
    <name>SaveAllFileDialog</name>
    <message>
        <source>Autosave:</source>
        <translation>Guardado automático:</translation>
    </message>
    <message>
        <source>Use as basename for untitled images</source>
        <translation>Usar como nombre base de las imágenes sin título</translation>
    </message>
</context>
</TS>
