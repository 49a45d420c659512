<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>ConfigureToolsDialog</name>
    <message>
        <source>Configure Tools</source>
        <translation>Configurar herramientas</translation>
    </message>
    <message>
        <source>Graphics Editor</source>
        <translation>Editor gráfico</translation>
    </message>
    <message>
        <source>Graphics Editor Command:</source>
        <translation>Orden del editor gráfico:</translation>
    </message>
    <message>
        <source>Graphics Editor Input &lt;BMP&gt;:</source>
        <translation>Entrada del editor gráfico &lt;BMP&gt;:</translation>
    </message>
    <message>
        <source>OCR</source>
        <translation>Reconocimiento de texto</translation>
    </message>
    <message>
        <source>OCR Command:</source>
        <translation>Orden del reconocimiento de texto:</translation>
    </message>
    <message>
        <source>OCR Input &lt;PBM&gt;:</source>
        <translation>Entrada del reconocimiento de texto &lt;PBM&gt;:</translation>
    </message>
    <message>
        <source>OCR Output / Text Editor Input &lt;TXT&gt;):</source>
        <translation>Salida del reconocimiento / entrada del editor de texto &lt;TXT&gt;:</translation>
    </message>
    <message>
        <source>Text Editor Command:</source>
        <translation>Orden del editor de texto:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
</context>
<context>
    <name>FtpForm</name>
    <message>
        <source>Upload Image by FTP</source>
        <translation>Subir imagen por FTP</translation>
    </message>
    <message>
        <source>Remote Host:</source>
        <translation>Servidor remoto:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Puerto:</translation>
    </message>
    <message>
        <source>Remote Path:</source>
        <translation>Ruta remota:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Usuario:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Contraseña:</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Guardar como...</translation>
    </message>
    <message>
        <source>&amp;Upload</source>
        <translation>&amp;Subir</translation>
    </message>
    <message>
        <source>Delete after Upload</source>
        <translation>Borrar después de subir</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>No Operation in Progress</source>
        <translation>Ninguna operación en curso</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>ERROR</source>
        <translation>ERROR</translation>
    </message>
    <message>
        <source>Read: %1</source>
        <translation>Leer: %1</translation>
    </message>
    <message>
        <source>Write: %1</source>
        <translation>Escribir: %1</translation>
    </message>
</context>
<context>
    <name>Global String Table</name>
    <message>
        <source>New</source>
        <translation>Nuevo</translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation>&amp;Nuevo...</translation>
    </message>
    <message>
        <source>Creates new empty image</source>
        <translation>Crea una imagen nueva y vacía</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Abrir...</translation>
    </message>
    <message>
        <source>Opens an existing image file</source>
        <translation>Abre un archivo de imagen existente</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Guardar</translation>
    </message>
    <message>
        <source>Saves current image to disk file</source>
        <translation>Guarda la imagen actual en un archivo</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Guardar como</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Guardar &amp;como...</translation>
    </message>
    <message>
        <source>Saves current image with another file name</source>
        <translation>Guarda la imagen actual con otro nombre</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Guardar todo</translation>
    </message>
    <message>
        <source>Save A&amp;ll...</source>
        <translation>Guardar &amp;todo...</translation>
    </message>
    <message>
        <source>Saves all unsaved images</source>
        <translation>Guarda todas las imágenes sin guardar</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Imprimir</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Imprimir</translation>
    </message>
    <message>
        <source>Prints current image</source>
        <translation>Imprime la imagen actual</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>C&amp;errar</translation>
    </message>
    <message>
        <source>Closes current image</source>
        <translation>Cierra la imagen actual</translation>
    </message>
    <message>
        <source>Close All</source>
        <translation>Cerrar to&amp;do</translation>
    </message>
    <message>
        <source>Closes all images</source>
        <translation>Cierra todas las imágenes</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>Exits the program</source>
        <translation>Sale del programa</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Etiquetas</translation>
    </message>
    <message>
        <source>&amp;Labels</source>
        <translation>&amp;Etiquetas</translation>
    </message>
    <message>
        <source>Shows or hides text labels on toolbar buttons</source>
        <translation>Muestra u oculta las etiquetas de los botones de la barra de herramientas</translation>
    </message>
    <message>
        <source>Big Pixmaps</source>
        <translation>Iconos grandes</translation>
    </message>
    <message>
        <source>&amp;Big Pixmaps</source>
        <translation>&amp;Iconos grandes</translation>
    </message>
    <message>
        <source>Sets the size of pixmaps on toolbar buttons</source>
        <translation>Establece el tamaño de los iconos de la barra de herramientas</translation>
    </message>
    <message>
        <source>Tooltips</source>
        <translation>Sugerencias</translation>
    </message>
    <message>
        <source>&amp;Tooltips</source>
        <translation>&amp;Sugerencias</translation>
    </message>
    <message>
        <source>Shows or hides tooltips on toolbar buttons</source>
        <translation>Muestra u oculta las sugerencias de los botones de la barra de herramientas</translation>
    </message>
    <message>
        <source>Movable Toolbars</source>
        <translation>Barras de herramientas móviles</translation>
    </message>
    <message>
        <source>&amp;Movable Toolbars</source>
        <translation>Barras de herramientas &amp;móviles</translation>
    </message>
    <message>
        <source>Enables or disables toolbars movement</source>
        <translation>Permite o impide mover las barras de herramientas</translation>
    </message>
    <message>
        <source>Save Layout</source>
        <translation>Guardar disposición</translation>
    </message>
    <message>
        <source>&amp;Save Layout</source>
        <translation>&amp;Guardar disposición</translation>
    </message>
    <message>
        <source>Saves current window layout</source>
        <translation>Guarda la disposición actual de la ventana</translation>
    </message>
    <message>
        <source>Reset Layout</source>
        <translation>Restablecer disposición</translation>
    </message>
    <message>
        <source>&amp;Reset Layout</source>
        <translation>&amp;Restablecer disposición</translation>
    </message>
    <message>
        <source>Set default window layout</source>
        <translation>Restablece la disposición predeterminada de la ventana</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>U&amp;ndo</source>
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>Undoes last edit operation</source>
        <translation>Deshace la última modificación</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
    <message>
        <source>R&amp;edo</source>
        <translation>&amp;Rehacer</translation>
    </message>
    <message>
        <source>Redoes last undone operation</source>
        <translation>Rehace la última modificación deshecha</translation>
    </message>
    <message>
        <source>Scroll</source>
        <translation>Desplazar</translation>
    </message>
    <message>
        <source>&amp;Scroll</source>
        <translation>&amp;Desplazar</translation>
    </message>
    <message>
        <source>Activates image free-hand scrolling</source>
        <translation>Activa el desplazamiento libre de la imagen con el ratón</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Alejar</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>A&amp;lejar</translation>
    </message>
    <message>
        <source>Zooms current image out</source>
        <translation>Reduce la vista de la imagen actual</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Acercar</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>A&amp;cercar</translation>
    </message>
    <message>
        <source>Zooms current image in</source>
        <translation>Amplía la vista de la imagen actual</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Escalar</translation>
    </message>
    <message>
        <source>&amp;Scale</source>
        <translation>E&amp;scalar</translation>
    </message>
    <message>
        <source>Displays Scale dialog to set image scale value</source>
        <translation>Muestra el cuadro de diálogo para escalar la imagen</translation>
    </message>
    <message>
        <source>Horizontally</source>
        <translation>Horizontalmente</translation>
    </message>
    <message>
        <source>&amp;Horizontally...</source>
        <translation>&amp;Horizontalmente...</translation>
    </message>
    <message>
        <source>Vertically</source>
        <translation>Verticalmente</translation>
    </message>
    <message>
        <source>&amp;Vertically...</source>
        <translation>&amp;Verticalmente...</translation>
    </message>
    <message>
        <source>Proportionally</source>
        <translation>Proporcionalmente</translation>
    </message>
    <message>
        <source>&amp;Proportionally...</source>
        <translation>&amp;Proporcionalmente...</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Cambiar tamaño</translation>
    </message>
    <message>
        <source>&amp;Resize...</source>
        <translation>Cambiar &amp;tamaño...</translation>
    </message>
    <message>
        <source>Displays Resize dialog to set image size in pixels</source>
        <translation>Muestra el cuadro de diálogo para cambiar el tamaño de la imagen en píxeles</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Girar</translation>
    </message>
    <message>
        <source>&amp;Rotate</source>
        <translation>&amp;Girar</translation>
    </message>
    <message>
        <source>Rotates the image</source>
        <translation>Gira la imagen</translation>
    </message>
    <message>
        <source>90 degrees CCW</source>
        <translation>90 grados a la izquierda</translation>
    </message>
    <message>
        <source>9&amp;0 degrees CCW</source>
        <translation>90 grados a la &amp;izquierda</translation>
    </message>
    <message>
        <source>Rotates the image to 90 degrees counter-clock-wise</source>
        <translation>Gira la imagen 90 grados en sentido antihorario</translation>
    </message>
    <message>
        <source>90 degrees CW</source>
        <translation>90 grados a la derecha</translation>
    </message>
    <message>
        <source>&amp;90 degrees CW</source>
        <translation>90 grados a la &amp;derecha</translation>
    </message>
    <message>
        <source>Rotates the image to 90 degrees clock-wise</source>
        <translation>Gira la imagen 90 grados en sentido horario</translation>
    </message>
    <message>
        <source>180 degrees</source>
        <translation>180 grados</translation>
    </message>
    <message>
        <source>&amp;180 degrees</source>
        <translation>&amp;180 grados</translation>
    </message>
    <message>
        <source>Rotates the image to 180 degrees</source>
        <translation>Gira la imagen 180 grados</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Voltear</translation>
    </message>
    <message>
        <source>&amp;Flip</source>
        <translation>&amp;Voltear</translation>
    </message>
    <message>
        <source>Flips the image</source>
        <translation>Voltea la imagen</translation>
    </message>
    <message>
        <source>&amp;Horizontally</source>
        <translation>&amp;Horizontalmente</translation>
    </message>
    <message>
        <source>Flips the image horizontally (&quot;mirror on the wall&quot;)</source>
        <translation>Voltea la imagen horizontalmente («espejo en la pared»)</translation>
    </message>
    <message>
        <source>&amp;Vertically</source>
        <translation>&amp;Verticalmente</translation>
    </message>
    <message>
        <source>Flips the image vertically (&quot;mirror on the floor&quot;)</source>
        <translation>Voltea la imagen verticalmente («espejo en el suelo»)</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Invertir</translation>
    </message>
    <message>
        <source>&amp;Invert</source>
        <translation>&amp;Invertir</translation>
    </message>
    <message>
        <source>Inverts image colors</source>
        <translation>Invierte los colores de la imagen</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Brillo</translation>
    </message>
    <message>
        <source>&amp;Brightness...</source>
        <translation>&amp;Brillo...</translation>
    </message>
    <message>
        <source>Sets image brightness</source>
        <translation>Ajusta el brillo de la imagen</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Contraste</translation>
    </message>
    <message>
        <source>&amp;Contrast...</source>
        <translation>&amp;Contraste...</translation>
    </message>
    <message>
        <source>Sets image contrast</source>
        <translation>Ajusta el contraste de la imagen</translation>
    </message>
    <message>
        <source>Color Bit Depth</source>
        <translation>Profundidad de color</translation>
    </message>
    <message>
        <source>&amp;Color Bit Depth</source>
        <translation>Profundidad de co&amp;lor</translation>
    </message>
    <message>
        <source>Sets image color depth</source>
        <translation>Ajusta la profundidad de color de la imagen</translation>
    </message>
    <message>
        <source>1 bit</source>
        <translation>1 bit</translation>
    </message>
    <message>
        <source>&amp;1 bit</source>
        <translation>&amp;1 bit</translation>
    </message>
    <message>
        <source>Sets image color depth to 1 bit</source>
        <translation>Ajusta la profundidad de color de la imagen a 1 bit</translation>
    </message>
    <message>
        <source>8 bit</source>
        <translation>8 bits</translation>
    </message>
    <message>
        <source>&amp;8 bit</source>
        <translation>&amp;8 bits</translation>
    </message>
    <message>
        <source>Sets image color depth to 8 bit</source>
        <translation>Ajusta la profundidad de color de la imagen a 8 bits</translation>
    </message>
    <message>
        <source>32 bit</source>
        <translation>32 bits</translation>
    </message>
    <message>
        <source>&amp;32 bit</source>
        <translation>&amp;32 bits</translation>
    </message>
    <message>
        <source>Sets image color depth to 32 bit</source>
        <translation>Ajusta la profundidad de color de la imagen a 32 bits</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source>C&amp;rop</source>
        <translation>&amp;Recortar</translation>
    </message>
    <message>
        <source>Creates a new image from the selection</source>
        <translation>Crea una imagen nueva a partir de la selección</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propiedades</translation>
    </message>
    <message>
        <source>&amp;Properties...</source>
        <translation>&amp;Propiedades...</translation>
    </message>
    <message>
        <source>Displays Properties dialog to set image properties</source>
        <translation>Muestra las propiedades de la imagen</translation>
    </message>
    <message>
        <source>Graphics Editor</source>
        <translation>Editor gráfico</translation>
    </message>
    <message>
        <source>&amp;Graphics Editor</source>
        <translation>Editor &amp;gráfico</translation>
    </message>
    <message>
        <source>Starts external graphics editor with the image</source>
        <translation>Abre la imagen en un editor gráfico externo</translation>
    </message>
    <message>
        <source>OCR</source>
        <translation>Reconocimiento de texto</translation>
    </message>
    <message>
        <source>&amp;OCR</source>
        <translation>&amp;Reconocimiento de texto</translation>
    </message>
    <message>
        <source>Starts external Optical Character Recognition (OCR) program</source>
        <translation>Inicia un programa externo de reconocimiento óptico de caracteres (OCR)</translation>
    </message>
    <message>
        <source>Send by E-mail</source>
        <translation>Enviar por correo electrónico</translation>
    </message>
    <message>
        <source>&amp;Send by E-mail...</source>
        <translation>&amp;Enviar por correo electrónico...</translation>
    </message>
    <message>
        <source>Sends the image by E-mail</source>
        <translation>Envía la imagen por correo electrónico</translation>
    </message>
    <message>
        <source>Upload by FTP</source>
        <translation>Subir por FTP</translation>
    </message>
    <message>
        <source>&amp;Upload by FTP...</source>
        <translation>&amp;Subir por FTP...</translation>
    </message>
    <message>
        <source>Uploads the image to remote FTP server</source>
        <translation>Sube la imagen a un servidor FTP remoto</translation>
    </message>
    <message>
        <source>Configure Tools</source>
        <translation>Configurar herramientas</translation>
    </message>
    <message>
        <source>&amp;Configure Tools...</source>
        <translation>&amp;Configurar herramientas...</translation>
    </message>
    <message>
        <source>Displays tools configuration dialog</source>
        <translation>Muestra el cuadro de diálogo de configuración de herramientas</translation>
    </message>
</context>
<context>
    <name>ImageManager</name>
    <message>
        <source>Warning</source>
        <translation>Advertencia</translation>
    </message>
    <message>
        <source>This operation cannot be undone or redone. Continue?</source>
        <translation>Esta operación no se podrá deshacer ni rehacer. ¿Desea continuar?</translation>
    </message>
    <message>
        <source>Error saving Undo/Redo information</source>
        <translation>Error al guardar la información para deshacer y rehacer</translation>
    </message>
    <message>
        <source>Saving Undo/Redo information...</source>
        <translation>Guardando la información para deshacer y rehacer...</translation>
    </message>
    <message>
        <source>Changing the image...</source>
        <translation>Modificando la imagen...</translation>
    </message>
    <message>
        <source>Rollback operation...</source>
        <translation>Revirtiendo la operación...</translation>
    </message>
    <message>
        <source>Undoing operation...</source>
        <translation>Deshaciendo la operación...</translation>
    </message>
    <message>
        <source>Redoing operation...</source>
        <translation>Rehaciendo la operación...</translation>
    </message>
    <message>
        <source>Open failed</source>
        <translation>No se pudo abrir</translation>
    </message>
    <message>
        <source>Error opening file</source>
        <translation>Error al abrir el archivo</translation>
    </message>
    <message>
        <source>Save failed</source>
        <translation>No se pudo guardar</translation>
    </message>
    <message>
        <source>Error saving image: %1</source>
        <translation>Error al guardar la imagen: %1</translation>
    </message>
    <message>
        <source>Image &apos;%1&apos; has been changed.
Do you want to save it?</source>
        <translation>La imagen «%1» se ha modificado.
¿Desea guardarla?</translation>
    </message>
    <message>
        <source>Do you want to save the image?</source>
        <translation>¿Desea guardar la imagen?</translation>
    </message>
    <message>
        <source>Image Depth 1 bit</source>
        <translation>Profundidad de color de 1 bit</translation>
    </message>
    <message>
        <source>Image Depth 8 bit</source>
        <translation>Profundidad de color de 8 bits</translation>
    </message>
    <message>
        <source>Image Depth 32 bit</source>
        <translation>Profundidad de color de 32 bits</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Invertir</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Brillo</translation>
    </message>
    <message>
        <source>Set Brightness</source>
        <translation>Ajustar brillo</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Contraste</translation>
    </message>
    <message>
        <source>Set Contrast</source>
        <translation>Ajustar contraste</translation>
    </message>
    <message>
        <source>Rotate 90 degrees CCW</source>
        <translation>Girar 90 grados a la izquierda</translation>
    </message>
    <message>
        <source>Rotate 180 degrees</source>
        <translation>Girar 180 grados</translation>
    </message>
    <message>
        <source>Rotate 90 degrees CW</source>
        <translation>Girar 90 grados a la derecha</translation>
    </message>
    <message>
        <source>Flip Vertically</source>
        <translation>Voltear verticalmente</translation>
    </message>
    <message>
        <source>Flip Horizontally</source>
        <translation>Voltear horizontalmente</translation>
    </message>
    <message>
        <source>Scale Proportionally</source>
        <translation>Escalar proporcionalmente</translation>
    </message>
    <message>
        <source>Proportional Scale</source>
        <translation>Escala proporcional</translation>
    </message>
    <message>
        <source>Number to multiple actual image height and width on</source>
        <translation>Número por el que se multiplican la altura y la anchura actuales de la imagen</translation>
    </message>
    <message>
        <source>Scale Vertically</source>
        <translation>Escalar verticalmente</translation>
    </message>
    <message>
        <source>Vertical Scale</source>
        <translation>Escala vertical</translation>
    </message>
    <message>
        <source>Number to multiple actual image height on</source>
        <translation>Número por el que se multiplica la altura actual de la imagen</translation>
    </message>
    <message>
        <source>Scale Horizontally</source>
        <translation>Escalar horizontalmente</translation>
    </message>
    <message>
        <source>Horizontal Scale</source>
        <translation>Escala horizontal</translation>
    </message>
    <message>
        <source>Number to multiple actual image width on</source>
        <translation>Número por el que se multiplica la anchura actual de la imagen</translation>
    </message>
    <message>
        <source>Load failed</source>
        <translation>No se pudo cargar</translation>
    </message>
    <message>
        <source>Error loading file</source>
        <translation>Error al cargar el archivo</translation>
    </message>
    <message>
        <source>Could not load image
Not enough memory to load bitmap image
Do you want to save it?</source>
        <translation>No se pudo cargar la imagen
No hay memoria suficiente para cargar el mapa de bits
¿Desea guardarla?</translation>
    </message>
    <message>
        <source>Image Manager</source>
        <translation>Image Manager</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documentos</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Efectos</translation>
    </message>
    <message>
        <source>Changes the image zoom</source>
        <translation>Cambia el zoom de la imagen</translation>
    </message>
    <message>
        <source>&lt;p&gt;Zoom&lt;p&gt;&lt;p&gt;Changes the image zoom.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Zoom&lt;p&gt;&lt;p&gt;Cambia el zoom de la imagen.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Edición</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>&amp;Zoom</translation>
    </message>
    <message>
        <source>&amp;Image</source>
        <translation>&amp;Imagen</translation>
    </message>
    <message>
        <source>Image Manager Toolbar</source>
        <translation>Barra de herramientas de Image Manager</translation>
    </message>
    <message>
        <source>More commands</source>
        <translation>Más comandos</translation>
    </message>
    <message>
        <source>Page 1 of %1</source>
        <translation>Página 1 de %1</translation>
    </message>
    <message>
        <source>%1 holds %2 pictures, and not all of them are open. What is not open cannot be kept. Save?</source>
        <translation>%1 contiene %2 imágenes y no todas están abiertas. Lo que no está abierto no se puede conservar. ¿Guardar?</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Herramientas</translation>
    </message>
    <message>
        <source>Printing...</source>
        <translation>Imprimiendo...</translation>
    </message>
</context>
<context>
    <name>MailForm</name>
    <message>
        <source>Send Image By E-mail</source>
        <translation>Enviar la imagen por correo electrónico</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>Servidor:</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>Servidor</translation>
    </message>
    <message>
        <source>Login:</source>
        <translation>Usuario:</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Usuario</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Puerto:</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Puerto</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Contraseña:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Contraseña</translation>
    </message>
    <message>
        <source>From:</source>
        <translation>De:</translation>
    </message>
    <message>
        <source>From</source>
        <translation>De</translation>
    </message>
    <message>
        <source>To:</source>
        <translation>Para:</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Para</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>Asunto:</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Asunto</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Mensaje</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Guardar como...</translation>
    </message>
    <message>
        <source>Delete After Send</source>
        <translation>Eliminar después de enviar</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Enviar</translation>
    </message>
    <message>
        <source>No Operation in Progress</source>
        <translation>Ninguna operación en curso</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>Image must be saved before sending</source>
        <translation>La imagen debe guardarse antes de enviarla</translation>
    </message>
    <message>
        <source>Looking up mail servers</source>
        <translation>Buscando servidores de correo</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 ya existe.
¿Desea reemplazarlo?</translation>
    </message>
</context>
<context>
    <name>Smtp</name>
    <message>
        <source>The attached file cannot be read.</source>
        <translation>No se puede leer el archivo adjunto.</translation>
    </message>
    <message>
        <source>The domain %1 takes no mail.</source>
        <translation>El dominio %1 no acepta correo.</translation>
    </message>
    <message>
        <source>Connecting to:</source>
        <translation>Conectando con:</translation>
    </message>
    <message>
        <source>Connected to %1</source>
        <translation>Conectado con %1</translation>
    </message>
    <message>
        <source>The mail server offers no login that this program knows.</source>
        <translation>El servidor de correo no ofrece ningún método de acceso que este programa conozca.</translation>
    </message>
    <message>
        <source>Authentication...</source>
        <translation>Autenticación...</translation>
    </message>
    <message>
        <source>Sending mail...</source>
        <translation>Enviando el correo...</translation>
    </message>
    <message>
        <source>Message sent</source>
        <translation>Mensaje enviado</translation>
    </message>
    <message>
        <source>Unexpected reply from SMTP server:

</source>
        <translation>Respuesta inesperada del servidor SMTP:

</translation>
    </message>
    <message>
        <source>Mail system error</source>
        <translation>Error del sistema de correo</translation>
    </message>
    <message>
        <source>The connection to the mail server is lost.</source>
        <translation>Se ha perdido la conexión con el servidor de correo.</translation>
    </message>
    <message>
        <source>No connection to %1.</source>
        <translation>Sin conexión con %1.</translation>
    </message>
    <message>
        <source>Message not sent</source>
        <translation>Mensaje no enviado</translation>
    </message>
    <message>
        <source>The mail server does not answer.</source>
        <translation>El servidor de correo no responde.</translation>
    </message>
    <message>
        <source>A login is sent to no server but the one that is filled in.
Fill in &quot;Server&quot;, or empty &quot;Login&quot;.</source>
        <translation>Los datos de acceso se envían solo al servidor indicado.
Rellene «Servidor» o deje vacío «Usuario».</translation>
    </message>
    <message>
        <source>This address cannot be used:
%1</source>
        <translation>Esta dirección no se puede utilizar:
%1</translation>
    </message>
    <message>
        <source>The mail servers of %1 cannot be looked up at present.</source>
        <translation>Por ahora no se pueden averiguar los servidores de correo de %1.</translation>
    </message>
</context>
</TS>
