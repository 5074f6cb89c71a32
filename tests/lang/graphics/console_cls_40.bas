10 ' CLS counts 80 columns a row, also with 40: the cursor lands twice as low.
20 WIDTH 40:CONSOLE 5,10:CLS:PRINT CSRLIN
