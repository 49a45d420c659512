<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>FindBar</name>
    <message>
        <source>&amp;Find:</source>
        <translation>&amp;Buscar:</translation>
    </message>
    <message>
        <source>Text to find in the page</source>
        <translation>Texto que se busca en la página</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Anterior</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>Si&amp;guiente</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>No encontrado</translation>
    </message>
</context>
<context>
    <name>HelpPages</name>
    <message>
        <source>There is no help page &quot;%1&quot;.</source>
        <translation>No hay ninguna página de ayuda «%1».</translation>
    </message>
    <message>
        <source>The help pages are not installed: there is no directory &quot;%1&quot;.</source>
        <translation>Las páginas de ayuda no están instaladas: no existe el directorio «%1».</translation>
    </message>
    <message>
        <source>Page not found</source>
        <translation>Página no encontrada</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Help page</source>
        <translation>Página de ayuda</translation>
    </message>
    <message>
        <source>The link to %1 leads out of the help and is not followed.</source>
        <translation>El enlace a %1 sale de la ayuda y no se sigue.</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Contenido</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Comandos</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>A&amp;trás</translation>
    </message>
    <message>
        <source>F&amp;orward</source>
        <translation>A&amp;delante</translation>
    </message>
    <message>
        <source>&amp;Home</source>
        <translation>&amp;Inicio</translation>
    </message>
    <message>
        <source>F&amp;ind</source>
        <translation>B&amp;uscar</translation>
    </message>
    <message>
        <source>&amp;Larger</source>
        <translation>&amp;Más grande</translation>
    </message>
    <message>
        <source>&amp;Smaller</source>
        <translation>Más &amp;pequeño</translation>
    </message>
    <message>
        <source>Prin&amp;t</source>
        <translation>Imp&amp;rimir</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>%1 - Help</source>
        <translation>%1 - Ayuda</translation>
    </message>
</context>
</TS>
