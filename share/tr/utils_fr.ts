<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>FtpMachine</name>
    <message>
        <source>Invalid character in name</source>
        <translation>Caractère non valide dans le nom</translation>
    </message>
    <message>
        <source>Host %1 not found</source>
        <translation>Hôte %1 introuvable</translation>
    </message>
    <message>
        <source>Connection refused to host %1</source>
        <translation>Connexion refusée par l’hôte %1</translation>
    </message>
    <message>
        <source>Connection to %1 closed</source>
        <translation>Connexion à %1 fermée</translation>
    </message>
    <message>
        <source>The local file has changed</source>
        <translation>Le fichier local a changé</translation>
    </message>
    <message>
        <source>Connecting to host failed:
%1</source>
        <translation>Échec de la connexion à l’hôte :
%1</translation>
    </message>
    <message>
        <source>Login failed:
%1</source>
        <translation>Échec de l’identification :
%1</translation>
    </message>
    <message>
        <source>Uploading file failed:
%1</source>
        <translation>Échec de l’envoi du fichier :
%1</translation>
    </message>
    <message>
        <source>Connection refused for data connection</source>
        <translation>Connexion de données refusée</translation>
    </message>
    <message>
        <source>Data connection closed</source>
        <translation>Connexion de données fermée</translation>
    </message>
</context>
<context>
    <name>ImagePropertiesDialog</name>
    <message>
        <source>Image Properties</source>
        <translation>Propriétés de l&apos;image</translation>
    </message>
    <message>
        <source>Width [pixels]</source>
        <translation>Largeur [pixels]</translation>
    </message>
    <message>
        <source>Height [pixels]</source>
        <translation>Hauteur [pixels]</translation>
    </message>
    <message>
        <source>Bit Depth</source>
        <translation>Profondeur en bits</translation>
    </message>
    <message>
        <source>Colors in Palette</source>
        <translation>Couleurs de la palette</translation>
    </message>
    <message>
        <source>Grayscale</source>
        <translation>Niveaux de gris</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>Bytes (not including palette)</source>
        <translation>Octets (sans la palette)</translation>
    </message>
    <message>
        <source>Bytes per line</source>
        <translation>Octets par ligne</translation>
    </message>
    <message>
        <source>Zoom coefficient</source>
        <translation>Coefficient de zoom</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>PropertiesDialog</name>
    <message>
        <source>Image Properties</source>
        <translation>Propriétés de l&apos;image</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propriétés</translation>
    </message>
    <message>
        <source>Width [pixels]</source>
        <translation>Largeur [pixels]</translation>
    </message>
    <message>
        <source>Height [pixels]</source>
        <translation>Hauteur [pixels]</translation>
    </message>
    <message>
        <source>Bit Depth</source>
        <translation>Profondeur en bits</translation>
    </message>
    <message>
        <source>Colors In Pallette</source>
        <translation>Couleurs de la palette</translation>
    </message>
    <message>
        <source>GrayScale</source>
        <translation>Niveaux de gris</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>Octets</translation>
    </message>
    <message>
        <source>Bytes per line</source>
        <translation>Octets par ligne</translation>
    </message>
    <message>
        <source>Zoom Coefficient</source>
        <translation>Coefficient de zoom</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Alt+O</source>
        <translation>Alt+O</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
</context>
<context>
    <name>Q3ScrollView</name>
    <message>
        <source>Horizontal scroll bar</source>
        <translation>Barre de défilement horizontale</translation>
    </message>
    <message>
        <source>Vertical scroll bar</source>
        <translation>Barre de défilement verticale</translation>
    </message>
</context>
<context>
    <name>Q3UrlOperator</name>
    <message>
        <source>The protocol `%1&apos; is not supported</source>
        <translation>Le protocole « %1 » n’est pas pris en charge</translation>
    </message>
</context>
<context>
    <name>ResizeDialog</name>
    <message>
        <source>Resize</source>
        <translation>Redimensionner</translation>
    </message>
    <message>
        <source>Pixel Dimensions</source>
        <translation>Dimensions en pixels</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Largeur</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Hauteur</translation>
    </message>
    <message>
        <source>Invalid Number</source>
        <translation>Nombre non valide</translation>
    </message>
    <message>
        <source>Check if Width and Height
contain non-digit characters
or more than 5 digits.</source>
        <translation>Vérifiez si la largeur et la hauteur
contiennent autre chose que des chiffres
ou plus de 5 chiffres.</translation>
    </message>
    <message>
        <source>Image side is too small</source>
        <translation>Un côté de l&apos;image est trop petit</translation>
    </message>
    <message>
        <source>Set Width and Height to 10 pixels or more.
</source>
        <translation>Indiquez une largeur et une hauteur d&apos;au moins 10 pixels.
</translation>
    </message>
    <message>
        <source>Resulting size is too big</source>
        <translation>La taille obtenue est trop grande</translation>
    </message>
    <message>
        <source>Decrease Width and Height
to fit the image in computer&apos;s memory.</source>
        <translation>Diminuez la largeur et la hauteur
pour que l&apos;image tienne dans la mémoire de l&apos;ordinateur.</translation>
    </message>
</context>
<context>
    <name>SimplePreviewDialog</name>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>Page of %1 x %2 pixels, shown at %3 x %4.</source>
        <translation>Page de %1 x %2 pixels, affichée à %3 x %4.</translation>
    </message>
</context>
<context>
    <name>UrlCopy</name>
    <message>
        <source>Could not open
%1</source>
        <translation>Impossible d’ouvrir
%1</translation>
    </message>
    <message>
        <source>Host %1 found</source>
        <translation>Hôte %1 trouvé</translation>
    </message>
    <message>
        <source>Connected to host %1</source>
        <translation>Connecté à l’hôte %1</translation>
    </message>
    <message>
        <source>Connection to %1 closed</source>
        <translation>Connexion à %1 fermée</translation>
    </message>
    <message>
        <source>Could not remove file or directory
%1</source>
        <translation>Impossible de supprimer le fichier ou le dossier
%1</translation>
    </message>
</context>
<context>
    <name>dialog_frame</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
</TS>
