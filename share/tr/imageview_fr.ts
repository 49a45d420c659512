<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ImageDocument</name>
    <message>
        <source>Error saving TIFF image!</source>
        <translation>Erreur lors de l&apos;enregistrement de l&apos;image TIFF&#xa0;!</translation>
    </message>
    <message>
        <source>Multipage image doesn&apos;t supported with format &lt;%1&gt;</source>
        <translation>Les images de plusieurs pages ne sont pas prises en charge par le format &lt;%1&gt;</translation>
    </message>
    <message>
        <source>Can not open file for write: 
%1</source>
        <translation>Impossible d&apos;ouvrir le fichier en écriture&#xa0;: 
%1</translation>
    </message>
    <message>
        <source>The pages that are not open cannot be kept.</source>
        <translation>Les pages qui ne sont pas ouvertes ne peuvent pas être conservées.</translation>
    </message>
    <message>
        <source>This is no plain file.</source>
        <translation>Ce n’est pas un fichier ordinaire.</translation>
    </message>
    <message>
        <source>A file of this format cannot be larger than %1.</source>
        <extracomment>%1 is a size in bytes, such as &quot;4 GiB&quot;</extracomment>
        <translation>Un fichier de ce format ne peut pas dépasser %1.</translation>
    </message>
    <message>
        <source>An image of %1 x %2 pixels cannot be saved in format &lt;%3&gt; at its size.</source>
        <translation>Une image de %1 x %2 pixels ne peut pas être enregistrée à sa taille au format &lt;%3&gt;.</translation>
    </message>
</context>
<context>
    <name>ImageFileDialog</name>
    <message>
        <source>Can&apos;t append &apos;%1&apos; extension, file name is too long.</source>
        <translation>Impossible d&apos;ajouter l&apos;extension «&#xa0;%1&#xa0;», le nom de fichier est trop long.</translation>
    </message>
    <message>
        <source>File &apos;%1&apos; already exists.
Do you want to replace it?</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» existe déjà.
Voulez-vous le remplacer&#xa0;?</translation>
    </message>
</context>
<context>
    <name>ImageFormat</name>
    <message>
        <source>All graphic files</source>
        <translation>Tous les fichiers image</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Tous les fichiers</translation>
    </message>
    <message>
        <source>Tagged Image File Format</source>
        <translation>Tagged Image File Format</translation>
    </message>
    <message>
        <source>Multipage TIFF</source>
        <translation>TIFF multipage</translation>
    </message>
    <message>
        <source>Windows Bitmaps</source>
        <translation>Bitmaps Windows</translation>
    </message>
    <message>
        <source>Portable Network Graphics</source>
        <translation>Portable Network Graphics</translation>
    </message>
    <message>
        <source>Portable Bitmap Monochrome</source>
        <translation>Portable Bitmap monochrome</translation>
    </message>
    <message>
        <source>Portable Bitmap Grayscale</source>
        <translation>Portable Bitmap en niveaux de gris</translation>
    </message>
    <message>
        <source>Portable Bitmap Colorful</source>
        <translation>Portable Bitmap en couleurs</translation>
    </message>
</context>
<context>
    <name>ImageView</name>
    <message>
        <source>Page</source>
        <translation>Page</translation>
    </message>
    <message>
        <source>Page picture</source>
        <translation>Image de la page</translation>
    </message>
    <message>
        <source>No image load</source>
        <translation>Aucune image chargée</translation>
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
        <translation>Ouvrir un fichier</translation>
    </message>
    <message>
        <source>Save File As</source>
        <translation>Enregistrer le fichier sous</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Tout enregistrer</translation>
    </message>
    <message>
        <source>Choose Type</source>
        <translation>Choisir le type</translation>
    </message>
    <message>
        <source>Please, choose the type explicitly.</source>
        <translation>Veuillez choisir le type explicitement.</translation>
    </message>
    <message>
        <source>Unsupported Format</source>
        <translation>Format non pris en charge</translation>
    </message>
    <message>
        <source>Image format %1 is not supported!</source>
        <translation>Le format d&apos;image %1 n&apos;est pas pris en charge&#xa0;!</translation>
    </message>
    <message>
        <source>Save in:</source>
        <translation>Enregistrer dans :</translation>
    </message>
</context>
<context>
    <name>SaveAllFileDialog</name>
    <message>
        <source>Autosave:</source>
        <translation>Enregistrement automatique&#xa0;:</translation>
    </message>
    <message>
        <source>Use as basename for untitled images</source>
        <translation>Utiliser comme nom de base des images sans titre</translation>
    </message>
</context>
</TS>
