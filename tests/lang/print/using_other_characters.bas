10 A$="+-$*!&"+CHR$(92)+".,あ#":PRINT USING A$;7
