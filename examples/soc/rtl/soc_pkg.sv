// Bytes of the protocol on the serial line.
package soc_pkg;

    localparam logic [7:0] COMMAND_READ  = 8'h52; // "R"
    localparam logic [7:0] COMMAND_WRITE = 8'h57; // "W"
    localparam logic [7:0] REPLY_DONE    = 8'h4b; // "K"

endpackage
