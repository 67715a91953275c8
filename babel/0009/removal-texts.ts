<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="81000">
        <source>%s files</source>
        <translation></translation>
    </message>
    <message id="81001">
        <source>1 file</source>
        <translation></translation>
    </message>
    <message id="81010">
        <source>Remove all EXIF tags from %s?</source>
        <translation></translation>
    </message>
    <message id="81011">
        <source>Remove all IPTC tags from %s?</source>
        <translation></translation>
    </message>
    <message id="81012">
        <source>Remove all XMP tags from %s?</source>
        <translation></translation>
    </message>
    <message id="81013">
        <source>Remove the ICC profile from %s?</source>
        <translation></translation>
    </message>
    <message id="81014">
        <source>Remove the geotag and all GPS tags from %s?</source>
        <translation></translation>
    </message>
    <message id="81015">
        <source>Remove all metadata from %s?</source>
        <translation></translation>
    </message>
    <message id="81016">
        <source>Each file is copied to the folder of safety copies first. Beside the file, ExifTool keeps the one before the first removal, with "_original" behind its name.</source>
        <translation></translation>
    </message>
    <message id="81020">
        <source>Remove tags from %s</source>
        <translation></translation>
    </message>
    <message id="81021">
        <source>Remove groups from %s</source>
        <translation></translation>
    </message>
    <message id="81022">
        <source>Delete the metadata of %s</source>
        <translation></translation>
    </message>
    <message id="81023">
        <source>Copy tags to %s</source>
        <translation></translation>
    </message>
    <message id="81024">
        <source>Remove tags of the group %s</source>
        <translation></translation>
    </message>
    <message id="81025">
        <source>Remove tags of the file</source>
        <translation></translation>
    </message>
    <message id="81026">
        <source>Reading the tags of %s</source>
        <translation></translation>
    </message>
    <message id="81030">
        <source>in %s of %s</source>
        <translation></translation>
    </message>
    <message id="81031">
        <source>No tag that can be removed</source>
        <translation></translation>
    </message>
    <message id="81032">
        <source>The groups were removed from %s.</source>
        <translation></translation>
    </message>
    <message id="81033">
        <source>The run has ended. The report tells what could not be done.</source>
        <translation></translation>
    </message>
    <message id="81034">
        <source>The run could not be carried to its end.</source>
        <translation></translation>
    </message>
    <message id="81035">
        <source>Filter by group</source>
        <translation></translation>
    </message>
    <message id="81036">
        <source>%s of %s groups</source>
        <translation></translation>
    </message>
    <message id="81040">
        <source>Choose the file with the tags</source>
        <translation></translation>
    </message>
    <message id="81041">
        <source>There is no file "%s".</source>
        <translation></translation>
    </message>
    <message id="81042">
        <source>Choose at least one of EXIF, IPTC and XMP.</source>
        <translation></translation>
    </message>
</context>
</TS>
