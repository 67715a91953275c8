<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="81500">
        <source>%s - %s x %s pixels</source>
        <translation></translation>
    </message>
    <message id="81501">
        <source>%s x %s pixels, %s bytes</source>
        <translation></translation>
    </message>
    <message id="81502">
        <source>%s x %s pixels, %s bytes, shown at a smaller size</source>
        <translation></translation>
    </message>
    <message id="81503">
        <source>The picture cannot be shown: %s</source>
        <translation></translation>
    </message>
    <message id="81504">
        <source>Reading the picture ...</source>
        <translation></translation>
    </message>
    <message id="81505">
        <source>The reading was stopped: these are not all bytes.</source>
        <translation></translation>
    </message>
    <message id="81506">
        <source>Zoom with Ctrl and the mouse wheel or with + and -; 1 shows the picture's own size, 0 fits it into the window.</source>
        <translation></translation>
    </message>
    <message id="81507">
        <source>Copy</source>
        <translation></translation>
    </message>
    <message id="81508">
        <source>Select all</source>
        <translation></translation>
    </message>
    <message id="81509">
        <source>Select less: at most %s can be copied at a time. Save the value to have all of it.</source>
        <translation></translation>
    </message>
    <message id="81510">
        <source>Save %s</source>
        <translation></translation>
    </message>
    <message id="81511">
        <source>"%s" cannot be written: %s</source>
        <translation></translation>
    </message>
    <message id="81512">
        <source>Choose the new thumbnail</source>
        <translation></translation>
    </message>
    <message id="81513">
        <source>Delete the thumbnail of "%s"?</source>
        <translation></translation>
    </message>
    <message id="81514">
        <source>The thumbnail was not changed.</source>
        <translation></translation>
    </message>
    <message id="81515">
        <source>"%s" is no JPEG file that can be read.</source>
        <translation></translation>
    </message>
    <message id="81520">
        <source>Embed a thumbnail in %s files</source>
        <translation></translation>
    </message>
    <message id="81521">
        <source>Embed a thumbnail in 1 file</source>
        <translation></translation>
    </message>
    <message id="81522">
        <source>Embedding the thumbnail</source>
        <translation></translation>
    </message>
    <message id="81523">
        <source>Export the thumbnails of %s files</source>
        <translation></translation>
    </message>
    <message id="81524">
        <source>Export the thumbnails of 1 file</source>
        <translation></translation>
    </message>
    <message id="81525">
        <source>Export the ICC profiles of %s files</source>
        <translation></translation>
    </message>
    <message id="81526">
        <source>Export the ICC profile of 1 file</source>
        <translation></translation>
    </message>
    <message id="81527">
        <source>Exporting %s</source>
        <translation></translation>
    </message>
    <message id="81528">
        <source>Choose the folder to export to</source>
        <translation></translation>
    </message>
    <message id="81529">
        <source>The folder "%s" does not exist. Choose one that does.</source>
        <translation></translation>
    </message>
    <message id="81530">
        <source>"%s" is there already.

Replace it and all others like it? With No, the new files get a number behind their names.</source>
        <translation></translation>
    </message>
    <message id="81531">
        <source>Choose at least one kind of data to export.</source>
        <translation></translation>
    </message>
    <message id="81532">
        <source>%s of %s files hold no %s, and nothing was written for them:</source>
        <translation></translation>
    </message>
</context>
</TS>
