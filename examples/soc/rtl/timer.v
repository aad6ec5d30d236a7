// A 16-bit timer that starts over at its limit. Registers:
//   0, 1  limit, low and high byte    2  bit 0 runs it, bit 1 reads the interrupt, which a write clears
//   4, 5  count, low and high byte
module timer #(
    parameter PRESCALE_BITS = 8
) (
    input  wire       clk,
    input  wire       rst,
    input  wire       select,
    input  wire       write,
    input  wire [2:0] address,
    input  wire [7:0] wdata,
    output reg  [7:0] rdata,
    output reg        ack,
    output reg        irq
);

    reg [PRESCALE_BITS-1:0] prescale;
    reg [15:0]              count, limit;
    reg                     running;

    wire tick         = running && &prescale;
    wire write_enable = select && write && !ack;

    always @(posedge clk)
        if (rst) begin
            prescale <= 0;
            count    <= 16'd0;
            limit    <= 16'hffff;
            running  <= 1'b0;
            irq      <= 1'b0;
        end else begin
            prescale <= running ? prescale + 1'b1 : 0;
            if (tick) begin
                count <= count == limit ? 16'd0 : count + 16'd1;
                if (count == limit)
                    irq <= 1'b1;
            end
            if (write_enable)
                case (address)
                    3'd0: limit[7:0]  <= wdata;
                    3'd1: limit[15:8] <= wdata;
                    3'd2: begin
                        running <= wdata[0];
                        irq     <= 1'b0;
                    end
                    default: ;
                endcase
        end

    always @(posedge clk) begin
        ack <= select && !ack && !rst;
        case (address)
            3'd0:    rdata <= limit[7:0];
            3'd1:    rdata <= limit[15:8];
            3'd2:    rdata <= {6'd0, irq, running};
            3'd4:    rdata <= count[7:0];
            default: rdata <= count[15:8];
        endcase
    end

endmodule
