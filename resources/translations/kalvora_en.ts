<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
  <name>Kalvora</name>
  <message>
    <source>Show in Finder</source>
    <translation>Show in File Manager</translation>
  </message>
  <message>
    <source>You seem to be enjoying using Kalvora! If you like Kalvora, please, rate it on the AppStore.</source>
    <translation>You seem to be enjoying using Kalvora! If you like Kalvora, please rate it in the software center.</translation>
  </message>
  <message>
    <source>Include stereo track aside surround track when possible</source>
    <translation>Include stereo track beside surround track when possible</translation>
  </message>
  <message>
    <source>All of the conversions will be cancelled.</source>
    <translation>All conversions will be stopped.</translation>
  </message>
  <message>
    <source>The conversion of '%@' is still in progress. Do you wish to cancel?</source>
    <translation>The conversion of '%@' is still in progress. Do you want to stop it?</translation>
  </message>
  <message>
    <source>%@ conversions are still in progress. Do you wish to stop them?</source>
    <translation>%@ conversions are still in progress. Do you want to stop them?</translation>
  </message>
  <message>
    <source>Canceling this conversion will result in losing all progress so far.</source>
    <translation>All progress so far will be lost.</translation>
  </message>
  <message>
    <source>This is no regular file.</source>
    <translation>This is not a regular file.</translation>
  </message>
  <message>
    <source>There is a file of that name already.</source>
    <translation>A file with this name already exists.</translation>
  </message>
  <message>
    <source>The file does not tell the size of its picture.</source>
    <translation>The video's frame size is missing.</translation>
  </message>
  <message>
    <source>A track of the file holds nothing that can be decoded.</source>
    <translation>One track contains no data that can be decoded.</translation>
  </message>
  <message>
    <source>The file is damaged, or it is no media file.</source>
    <translation>The file is damaged, or it is not a media file.</translation>
  </message>
  <message>
    <source>The preset can make nothing of this file.</source>
    <translation>The preset cannot convert this file.</translation>
  </message>
  <message>
    <source>The subtitles file is in no format that can be read.</source>
    <translation>The format of the subtitles file is unknown.</translation>
  </message>
  <message>
    <source>The disc could not be written to its end.</source>
    <translation>The disc could not be written completely.</translation>
  </message>
  <message>
    <source>There is no film that can be put on the disc.</source>
    <translation>No film can be put on the disc.</translation>
  </message>
  <message>
    <source>This preset  changes the video's container and transcodes audio.

Current format selected: %@ %@</source>
    <translation>This preset changes the video's container and transcodes audio.

Current format selected: %@ %@</translation>
  </message>
</context>
</TS>
