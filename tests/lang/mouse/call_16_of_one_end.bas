10 ' An end of the range that is not given is 0.
20 SLEEP 1
30 M=16:A=1:B=-100:CALL MOUSE(M,A,B):PRINT MOUSE(0)
