10 ' Rubbing out the prompt takes the end of the input with it, below its start: what is typed
20 ' there and then passed to the left is one character, without blanks up to the old start.
30 PRINT "ABCDEF";
40 LINE INPUT A$
50 PRINT "[";A$;"]"
