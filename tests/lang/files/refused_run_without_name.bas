10 RUN ""
