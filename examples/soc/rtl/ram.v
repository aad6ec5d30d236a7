// Bytes in a memory block.
module ram #(
    parameter ADDRESS_BITS = 8
) (
    input  wire                    clk,
    input  wire                    rst,
    input  wire                    select,
    input  wire                    write,
    input  wire [ADDRESS_BITS-1:0] address,
    input  wire [7:0]              wdata,
    output reg  [7:0]              rdata,
    output reg                     ack
);

    reg [7:0] mem [0:(1<<ADDRESS_BITS)-1];

    wire write_enable = select && write && !ack;

    always @(posedge clk) begin
        if (write_enable)
            mem[address] <= wdata;
        rdata <= mem[address];
        ack   <= select && !ack && !rst;
    end

endmodule
