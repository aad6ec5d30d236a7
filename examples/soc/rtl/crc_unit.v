// CRC of the bytes written to register 0, which reads it; a write to register 1 starts over.
module crc_unit (
    input  wire       clk,
    input  wire       rst,
    input  wire       select,
    input  wire       write,
    input  wire       address,
    input  wire [7:0] wdata,
    output reg  [7:0] rdata,
    output reg        ack
);

    wire [7:0] crc;
    wire       write_enable = select && write && !ack;
    wire       clear        = write_enable && address;
    wire       valid        = write_enable && !address;

    crc8 u_crc8 (.clk(clk), .rst(rst), .clear(clear), .valid(valid), .data(wdata), .crc(crc));

    always @(posedge clk) begin
        ack   <= select && !ack && !rst;
        rdata <= crc;
    end

endmodule
