<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="80500">
        <source>Filter by tag, group or meaning</source>
        <translation></translation>
    </message>
    <message id="80501">
        <source>will be removed</source>
        <translation></translation>
    </message>
    <message id="80502">
        <source>No tag matches the filter</source>
        <translation></translation>
    </message>
    <message id="80503">
        <source>No tag of this group can be written</source>
        <translation></translation>
    </message>
    <message id="80504">
        <source>%s of %s tags</source>
        <translation></translation>
    </message>
    <message id="80505">
        <source>%s changed</source>
        <translation></translation>
    </message>
    <message id="80506">
        <source>%s ticked</source>
        <translation></translation>
    </message>
    <message id="80507">
        <source>Edit the value ...</source>
        <translation></translation>
    </message>
    <message id="80508">
        <source>Empty the value</source>
        <translation></translation>
    </message>
    <message id="80509">
        <source>Undo the change</source>
        <translation></translation>
    </message>
    <message id="80510">
        <source>Copy the row</source>
        <translation></translation>
    </message>
    <message id="80511">
        <source>Modify %s tags of %s</source>
        <translation></translation>
    </message>
    <message id="80512">
        <source>Add %s tags to %s</source>
        <translation></translation>
    </message>
    <message id="80513">
        <source>%s files</source>
        <translation></translation>
    </message>
    <message id="80514">
        <source>&amp;Write</source>
        <translation></translation>
    </message>
    <message id="80515">
        <source>The tags of this file could not be read</source>
        <translation></translation>
    </message>
    <message id="80516">
        <source>No tag belongs to this list</source>
        <translation></translation>
    </message>
    <message id="80517">
        <source>%s holds no line of names with a line of values</source>
        <translation></translation>
    </message>
    <message id="80518">
        <source>%s values loaded, %s names are not in the list</source>
        <translation></translation>
    </message>
    <message id="80519">
        <source>Choose a tag of the group in the metadata panel first.</source>
        <translation></translation>
    </message>
</context>
</TS>
