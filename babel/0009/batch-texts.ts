<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The texts of the operations over several files that stand in no form. -->
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="82001">
        <source>Setting file dates</source>
        <translation></translation>
    </message>
    <message id="82002">
        <source>Renaming by shutter count</source>
        <translation></translation>
    </message>
    <message id="82003">
        <source>Renaming by date and maker</source>
        <translation></translation>
    </message>
    <message id="82004">
        <source>Renaming by date and model</source>
        <translation></translation>
    </message>
    <message id="82005">
        <source>Removing thumbnails</source>
        <translation></translation>
    </message>
    <message id="82010">
        <source>The report %s cannot be written, and without it nobody could say what became of the files. Nothing was done.

%s</source>
        <translation></translation>
    </message>
    <message id="82011">
        <source>There is no folder “%s”.</source>
        <translation></translation>
    </message>
    <message id="82012">
        <source>Choose a folder</source>
        <translation></translation>
    </message>
    <message id="82013">
        <source>There are no files in %s.</source>
        <translation></translation>
    </message>
    <message id="82014">
        <source>... This is the last part of a long report. The whole of it is in %s.</source>
        <translation></translation>
    </message>
    <message id="82015">
        <source> ... (cut)</source>
        <translation></translation>
    </message>
</context>
</TS>
